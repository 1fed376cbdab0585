// SPDX-License-Identifier: MIT
#include "admission/missing.hpp"
#include "text/white_space.hpp"
#include "tool_binding/tool_binding.hpp"
#include "values/joined.hpp"

namespace tool_binding {

std::optional<std::string> missing_arguments(std::string_view tool, std::optional<std::string_view> action,
                                             const ArgumentMap& arguments) {
  const auto value_of = [&](const detail::PreparedParam& param) { return arguments.find(param.spec->name); };
  const std::vector<std::string> problems = _missing(TOOLS[tool], action, value_of);
  if (problems.empty()) {
    return std::nullopt;
  }
  std::string refusal;
  append_joined(refusal, problems, "; ");
  return refusal;
}

bool _given(const ParamSpec& param, const Value& value) {
  if (param.blank_is_value) {
    return !value.is_null();
  }
  if (value.is_text()) {
    return !text::is_blank(value.text());
  }
  return !value.is_null() && !(value.is_list() && value.list().empty());
}

std::string _missing_problem(const ToolSpec& spec, std::optional<std::string_view> action, const ParamSpec& param) {
  std::string problem(spec.name().view());
  if (action && !action->empty()) {
    problem.append(" '").append(*action).append("'");
  }
  return problem.append(" needs '").append(param.name.view()).append("'");
}

}  // namespace tool_binding
