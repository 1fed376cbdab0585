// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "registry/as_it_is.hpp"
#include "registry/name_index.hpp"
#include "registry/near_candidates.hpp"
#include "tool_binding/tool_registry.hpp"

/// A tool's declaration with all that can be worked out from it before the first request.
namespace tool_binding::detail {

/// The five type words, and any other.
enum class TypeWord : std::uint8_t { integer, number, boolean, string, array, unknown };

[[nodiscard]] TypeWord type_word(std::string_view word) noexcept;

/// A parameter as admission reads it.
struct PreparedParam {
  const ParamSpec* spec;
  TypeWord type;
  Kind kind;                       ///< of its values; null for an unknown type word
  bool items_are_texts;            ///< an array whose items are taken as texts
  std::uint32_t slot;              ///< the place of its name in a bound map
  std::vector<Text> lowered_enum;  ///< the enumeration in lower case, value for value
  AsItIs as_it_is;
};

struct PreparedTool {
  explicit PreparedTool(ToolDeclaration declaration);
  PreparedTool(const PreparedTool&) = delete;
  PreparedTool& operator=(const PreparedTool&) = delete;

  [[nodiscard]] const PreparedParam* param(const Text& name) const noexcept {
    const std::uint32_t place = names.find(name);
    return place == NameIndex::absent ? nullptr : &params[place];
  }

  ToolDeclaration declared;
  std::vector<Text> param_names;
  std::string joined_param_names;  ///< as a refusal lists them
  std::vector<Text> action_names;

  std::vector<PreparedParam> params;  ///< in declared order
  std::vector<std::uint32_t> needed;  ///< the places in `params` of those that any call needs
  NameIndex names;                    ///< declared names and synonyms to places in `params`
  NameIndex actions;                  ///< names of actions to places among the actions
  NameIndex lowered_actions;          ///< names and synonyms of actions in lower case to places among the actions

  /// Every name that a bound map holds has a slot: its place in that map.
  NameIndex slots;
  /// By slot, the parameter that an argument of the slot's name gives; null where the name routes or names the action.
  std::vector<const PreparedParam*> named_params;
  std::uint32_t action_slot;   ///< the slot of ACTION_PARAM, or NameIndex::absent
  bool binds_action;           ///< whether the bound action is what the request runs: no parameter has its name
  ArgumentMap bound_defaults;  ///< the bound map of a request that gives nothing, but for the action that it runs

  NearCandidates near_params;   ///< declared names, then synonyms
  NearCandidates near_actions;  ///< declared names
};

}  // namespace tool_binding::detail
