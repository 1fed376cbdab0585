// SPDX-License-Identifier: MIT
#include "admission/missing.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

/// The refusal of a call. `value_of(param)` as `_missing` takes it.
template <class ValueOf>
std::optional<std::string> refusal(const ToolSpec& tool, ActionName action, const ValueOf& value_of) {
  const Text named(action.name().value_or(""));
  Problems problems;
  _missing(tool, action.name() ? &named : nullptr, value_of, problems);
  return problems.empty() ? std::nullopt : std::optional<std::string>(problems.joined());
}

}  // namespace

std::optional<std::string> missing_arguments(std::string_view tool, ActionName action, const ArgumentMap& arguments) {
  return missing_arguments(TOOLS[tool], action, arguments);
}

std::optional<std::string> missing_arguments(const ToolSpec& tool, ActionName action, const ArgumentMap& arguments) {
  return refusal(tool, action, [&](const detail::PreparedParam& param) { return arguments.find(param.spec->name); });
}

std::optional<std::string> detail::missing_keywords(const ToolSpec& tool, ActionName action,
                                                    const KeywordArguments& keywords) {
  const Value context_item = true;  // stands for what says something, whatever it is
  return refusal(tool, action, [&](const PreparedParam& param) {
    const KeywordArgument* const found = keywords.find(param.spec->name);
    return found == nullptr ? nullptr : found->is_context() ? &context_item : &found->value();
  });
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
