// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "registry/name_index.hpp"
#include "tool_binding/tool_registry.hpp"
#include "values/text_builder.hpp"

namespace tool_binding {

/// Arguments that say where a request goes. They are never the tool's own.
inline constexpr std::array<std::string_view, 2> ROUTING_PARAMS = {REPO_ROOT_ARGUMENT, "repo"};

[[nodiscard]] inline bool is_routing_param(std::string_view name) noexcept {
  return name == ROUTING_PARAMS[0] || name == ROUTING_PARAMS[1];
}

namespace detail {

/// A tool's declaration with the indexes of its names: all that a `ToolSpec` answers from.
struct ToolRecord {
  explicit ToolRecord(ToolDeclaration declaration);
  ToolRecord(const ToolRecord&) = delete;
  ToolRecord& operator=(const ToolRecord&) = delete;

  /// The action that `value` names, null when there is none; as `ToolSpec::action` has it.
  [[nodiscard]] const ActionSpec* action(const Value& value) const;

  ToolDeclaration declared;
  std::vector<Text> param_names;   ///< in declared order
  std::vector<Text> action_names;  ///< in declared order
  NameIndex params;                ///< declared names and synonyms to positions among the parameters
  NameIndex actions;               ///< declared names to positions among the actions
  NameIndex lowered_actions;       ///< names and synonyms in lower case to positions among the actions
};

/// Appends the refusal of an action that the tool does not declare.
void append_unknown_action(TextBuilder& out, const ToolRecord& tool, const Value& action);

/// The action that a request runs which gives `named` as its action, null for none.
[[nodiscard]] Value effective_action(const ToolSpec& tool, const Value& named);

}  // namespace detail

}  // namespace tool_binding
