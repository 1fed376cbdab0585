// SPDX-License-Identifier: MIT
#include <utility>
#include <vector>

#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

using Parameters = std::vector<Parameter>;

bool _takes_any_keyword(const Parameters& parameters) noexcept {
  for (const Parameter& parameter : parameters) {
    if (parameter.kind == Parameter::Kind::VAR_KEYWORD) {
      return true;
    }
  }
  return false;
}

bool _names(const Parameters& parameters, const Text& keyword) noexcept {
  for (const Parameter& parameter : parameters) {
    if (keyword == parameter.name && parameter.kind == Parameter::Kind::NAMED) {
      return true;
    }
  }
  return false;
}

void _add_context(KeywordArguments& keywords, const Handler& handler, const KeywordArguments& context) {
  const Parameters& parameters = handler.signature.parameters;
  const bool takes_any = _takes_any_keyword(parameters);
  for (const auto& [name, item] : context) {
    if (!takes_any && !_names(parameters, name)) {
      continue;
    }
    if (const std::size_t place = keywords.linear_search(name); place != keywords.size()) {
      keywords.replace_at(place, item);
    } else {
      keywords.append(name, item);
    }
  }
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
