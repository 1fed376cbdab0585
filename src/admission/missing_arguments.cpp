// SPDX-License-Identifier: MIT
#include "admission/missing.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

std::optional<std::string> missing_arguments(std::string_view tool, std::optional<std::string_view> action,
                                             const ArgumentMap& arguments) {
  return missing_arguments(TOOLS[tool], action, arguments);
}

std::optional<std::string> missing_arguments(const ToolSpec& tool, std::optional<std::string_view> action,
                                             const ArgumentMap& arguments) {
  const auto value_of = [&](const detail::PreparedParam& param) { return arguments.find(param.spec->name); };
  const Text named(action.value_or(""));
  Problems problems;
  _missing(tool, action ? &named : nullptr, value_of, problems);
  return problems.empty() ? std::nullopt : std::optional<std::string>(problems.joined());
}

void _add_missing(Problems& problems, const ToolSpec& spec, const Text* action, const ParamSpec& param) {
  std::string& problem = problems.add();
  problem.append(spec.name());
  if (action != nullptr && !action->empty()) {
    problem.append(" '").append(*action).append("'");
  }
  problem.append(" needs '").append(param.name).append("'");
}

}  // namespace tool_binding
