// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

/// Whether one of `parameters` is a keyword of that name.
bool _names(const std::vector<Parameter>& parameters, const Text& name) noexcept {
  return std::any_of(parameters.begin(), parameters.end(), [&](const Parameter& parameter) {
    return name == parameter.name && parameter.kind == Parameter::Kind::NAMED;
  });
}

bool _takes_any(const std::vector<Parameter>& parameters) noexcept {
  return std::any_of(parameters.begin(), parameters.end(),
                     [](const Parameter& parameter) { return parameter.kind == Parameter::Kind::VAR_KEYWORD; });
}

void _add_context(KeywordArguments& keywords, const Handler& handler, const KeywordArguments& context) {
  const std::vector<Parameter>& parameters = handler.signature.parameters;
  const bool takes_any = _takes_any(parameters);
  for (const auto& [name, item] : context) {
    if (!takes_any && !_names(parameters, name)) {
      continue;
    }
    if (const std::size_t place = keywords.place_in_a_row(name); place != keywords.size()) {
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
  KeywordArguments keywords(std::move(bound), context.size());
  _add_context(keywords, handler, context);
  return keywords;
}

}  // namespace tool_binding
