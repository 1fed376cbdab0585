// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/tool_registry.hpp"

/// What a declaration says of a name, an action or a need.
namespace tool_binding::model {

/// A declared name is looked for before any synonym; null for a name that denotes no parameter.
[[nodiscard]] const ParamSpec* param(const ToolDeclaration& tool, std::string_view name);

/// A declared name that equals `value` is looked for before any other way to name an action; null when none is named.
[[nodiscard]] const ActionSpec* action(const ToolDeclaration& tool, const Value& value);

[[nodiscard]] std::vector<Text> param_names(const ToolDeclaration& tool);
[[nodiscard]] std::vector<Text> action_names(const ToolDeclaration& tool);

/// Whether `value` says something; null for a parameter that is left out.
[[nodiscard]] bool given(const ParamSpec& param, const Value& value);

/// The parameters that a call of `action` needs and lacks.
[[nodiscard]] std::vector<const ParamSpec*> missing(const ToolDeclaration& tool, std::optional<std::string_view> action,
                                                    const ArgumentMap& arguments);

/// The words for one of them.
[[nodiscard]] std::string missing_problem(const ToolDeclaration& tool, std::optional<std::string_view> action,
                                          const ParamSpec& param);

/// `texts`, with `separator` between each two.
template <class Texts>
[[nodiscard]] std::string joined(const Texts& texts, std::string_view separator) {
  std::string whole;
  std::string_view between;
  for (const auto& text : texts) {
    whole.append(between).append(text);
    between = separator;
  }
  return whole;
}

}  // namespace tool_binding::model
