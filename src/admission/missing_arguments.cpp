// SPDX-License-Identifier: MIT
#include "admission/missing.hpp"
#include "admission/words.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

/// The refusal of a call, of which `is_given(param)` says whether it gives a parameter.
template <class IsGiven>
std::optional<std::string> refusal_of(const ToolSpec& tool, ActionName action, const IsGiven& is_given) {
  Findings findings;
  const auto& name = action.name();
  _missing(detail::compiled(tool), name ? std::optional<Text>(*name) : std::nullopt, is_given, findings);
  return findings.empty() ? std::nullopt : std::optional<std::string>(joined_problems(findings).view());
}

}  // namespace

std::optional<std::string> missing_arguments(std::string_view tool, ActionName action, const ArgumentMap& arguments) {
  return missing_arguments(TOOLS[tool], action, arguments);
}

std::optional<std::string> missing_arguments(const ToolSpec& tool, ActionName action, const ArgumentMap& arguments) {
  return refusal_of(tool, action, [&](const detail::CompiledParam& param) {
    const Value* const value = arguments.find(param.spec->name);
    return value != nullptr && _given(*param.spec, *value);
  });
}

std::optional<std::string> detail::missing_keywords(const ToolSpec& tool, ActionName action,
                                                    const KeywordArguments& keywords) {
  return refusal_of(tool, action, [&](const CompiledParam& param) {
    const KeywordArgument* const found = keywords.find(param.spec->name);
    return found != nullptr && (found->is_context() || _given(*param.spec, found->value()));
  });
}

}  // namespace tool_binding
