// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>
#include <utility>

#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

/// The names of a handler's declared parameters that are keywords.
class ParameterNames {
 public:
  explicit ParameterNames(const std::vector<Parameter>& parameters) noexcept : parameters_(parameters) {}

  [[nodiscard]] bool contain(const Text& name) const noexcept {
    return std::any_of(parameters_.begin(), parameters_.end(), [&](const Parameter& parameter) {
      return name == parameter.name && parameter.kind == Parameter::Kind::NAMED;
    });
  }

 private:
  const std::vector<Parameter>& parameters_;
};

/// The names that `handler` takes, none when it takes any keyword.
std::optional<ParameterNames> _parameter_names(const Handler& handler) noexcept {
  const std::vector<Parameter>& parameters = handler.signature.parameters;
  const bool takes_any = std::any_of(parameters.begin(), parameters.end(), [](const Parameter& parameter) {
    return parameter.kind == Parameter::Kind::VAR_KEYWORD;
  });
  return takes_any ? std::nullopt : std::optional<ParameterNames>(parameters);
}

void _add_context(KeywordArguments& keywords, const Handler& handler, const KeywordArguments& context) {
  const std::optional<ParameterNames> takes = _parameter_names(handler);
  for (const auto& [name, item] : context) {
    if (takes && !takes->contain(name)) {
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
