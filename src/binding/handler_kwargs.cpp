// SPDX-License-Identifier: MIT
#include <utility>
#include <vector>

#include "binding/context_items.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

Parameters::Parameters(std::vector<Parameter> listed) : listed_(std::move(listed)) {
  detail::NameIndex named;
  bool names_any = false;
  for (const Parameter& parameter : listed_) {
    take_any_ = take_any_ || parameter.kind == Parameter::Kind::VAR_KEYWORD;
    names_any = (parameter.kind == Parameter::Kind::NAMED && named.add(parameter.name, 0)) || names_any;
  }
  if (names_any) {
    named_ = std::make_shared<const detail::NameIndex>(std::move(named));
  }
}

bool Parameters::take(const Text& keyword) const noexcept {
  return take_any_ || (named_ != nullptr && named_->find(keyword) != detail::NameIndex::absent);
}

namespace {

void _add_context(KeywordArguments& keywords, const Handler& handler, const KeywordArguments& context) {
  detail::add_context(keywords, handler.signature.parameters, context,
                      [&](const Text& name) { return keywords.linear_search(name); });
}

}  // namespace

KeywordArguments handler_kwargs(const Handler& handler, const ArgumentMap& bound, const KeywordArguments& context) {
  KeywordArguments keywords(bound, context.size());
  _add_context(keywords, handler, context);
  return keywords;
}

KeywordArguments handler_kwargs(const Handler& handler, ArgumentMap&& bound, const KeywordArguments& context) {
  KeywordArguments keywords(std::move(bound));
  _add_context(keywords, handler, context);
  return keywords;
}

}  // namespace tool_binding
