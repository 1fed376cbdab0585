// SPDX-License-Identifier: MIT
#include <algorithm>

#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

/// The names of a handler's declared parameters that are keywords.
class ParameterNames {
 public:
  explicit ParameterNames(const std::vector<Parameter>& parameters) noexcept : parameters_(parameters) {}

  [[nodiscard]] bool contains(const Text& name) const noexcept {
    return std::any_of(parameters_.begin(), parameters_.end(), [&](const Parameter& parameter) {
      return parameter.kind == Parameter::Kind::NAMED && parameter.name == name;
    });
  }

 private:
  const std::vector<Parameter>& parameters_;
};

/// The names that `handler` takes, null when it takes any keyword.
std::optional<ParameterNames> _parameter_names(const Handler& handler) noexcept {
  const std::vector<Parameter>& parameters = handler.signature.parameters;
  const bool takes_any = std::any_of(parameters.begin(), parameters.end(), [](const Parameter& parameter) {
    return parameter.kind == Parameter::Kind::VAR_KEYWORD;
  });
  return takes_any ? std::nullopt : std::optional<ParameterNames>(parameters);
}

}  // namespace

KeywordArguments handler_kwargs(const Handler& handler, const ArgumentMap& bound, const KeywordArguments& context) {
  const std::optional<ParameterNames> takes = _parameter_names(handler);
  KeywordArguments keywords;
  keywords.reserve(bound.size() + context.size());
  for (const auto& [name, value] : bound) {
    keywords.append(name, value);
  }
  for (const auto& [name, item] : context) {
    if (takes && !takes->contains(name)) {
      continue;
    }
    if (const std::size_t place = bound.place_in_a_row(name); place != bound.size()) {
      keywords.replace_at(place, item);
    } else {
      keywords.append(name, item);
    }
  }
  return keywords;
}

}  // namespace tool_binding
