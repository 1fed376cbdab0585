// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "compile/fast_path.hpp"
#include "near_names/candidates.hpp"
#include "registry/tool_record.hpp"
#include "types/type_words.hpp"

/// The compile stage: what admission and binding read of a declaration, worked out once, when a `ToolSpec` is made.
namespace tool_binding::detail {

/// A parameter as admission reads it.
struct CompiledParam {
  const ParamSpec* spec;
  const TypeRow* type;             ///< null for a type word that is none of the five
  bool items_are_texts;            ///< an array whose items are taken as texts
  std::uint32_t slot;              ///< the index of its name in a bound map
  std::vector<Text> lowered_enum;  ///< the enumeration in lower case, value for value
  FastPath fast_path;
};

struct CompiledTool : ToolRecord {
  explicit CompiledTool(ToolDeclaration declaration);

  [[nodiscard]] const CompiledParam* param(const Text& name) const noexcept {
    const std::uint32_t index = params.find(name);
    return index == NameIndex::absent ? nullptr : &compiled_params[index];
  }

  /// A copy of the bound defaults, to bind a request in, with room for `more` entries.
  template <class Map>
  [[nodiscard]] Map fresh_row(std::size_t more) const {
    return defaults_hold_nodes ? Map(bound_defaults, more) : Map(bound_defaults, more, WithoutNodes());
  }

  /// Whether `value` is the declared name of an action.
  [[nodiscard]] bool declares_action(const Value& value) const {
    return value.is_text() && actions.find(value.shared_text()) != NameIndex::absent;
  }

  std::vector<CompiledParam> compiled_params;  ///< in declared order
  std::vector<std::uint32_t> needed;           ///< the positions of those that any call needs

  /// Every name that a bound map holds has a slot: its index in that map.
  NameIndex slots;
  ArgumentMap bound_defaults;  ///< the bound map of a request that gives nothing, but for the action that it runs
  bool defaults_hold_nodes;    ///< whether a copy of that map has to count references
  /// By slot, the parameter that an argument of the slot's name gives; null for a reserved name.
  std::vector<const CompiledParam*> named_params;
  std::uint32_t action_slot;  ///< the slot of ACTION_PARAM, or NameIndex::absent
  bool binds_action;          ///< whether the bound action is what the request runs: no parameter has its name

  std::string taken;            ///< the names of the parameters, as a refusal lists them
  NearCandidates near_params;   ///< declared names, then synonyms
  NearCandidates near_actions;  ///< declared names
};

/// Every `ToolSpec` is made by the compile stage.
[[nodiscard]] inline const CompiledTool& compiled(const ToolRecord& tool) noexcept {
  return static_cast<const CompiledTool&>(tool);
}
[[nodiscard]] inline const CompiledTool& compiled(const ToolSpec& tool) noexcept { return compiled(tool.record()); }

}  // namespace tool_binding::detail
