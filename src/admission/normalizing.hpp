// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "admission/problems.hpp"
#include "admission/slot_states.hpp"
#include "registry/prepared_tool.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

/// The state of one request's admission: what was taken, changed and found wrong. Lives for one call: every argument is
/// handed to `take` once, in the request's order, and then `refusal` is asked once.
class Normalizing {
 public:
  /// A fresh state for a request of `argument_count` arguments. `tool` outlives the state, and so does `admitted`,
  /// which holds nothing yet.
  Normalizing(const ToolSpec& tool, std::size_t argument_count, NormalizedArguments& admitted);

  /// Takes one argument of the request.
  void take(const Text& name, const Value& value);

  /// Settles the action and what it needs, once every argument is taken. Returns every problem of the request, an empty
  /// text for one that is admitted.
  [[nodiscard]] Text refusal();

 private:
  using Param = detail::PreparedParam;

  // normalize_arguments.cpp
  [[nodiscard]] static bool _is_blank(const Param& param, const Value& value);
  void _take_unnamed(const Text& name, const Value& value);
  void _take_synonym(const Text& name, const Param& param, const Value& value);
  void _take_value(const Param& param, const Value& value);
  void _store(std::uint32_t slot, const Value& value) {
    if (slots[slot].stored()) {
      arguments.replace_at(slots[slot].place_stored(), value);
    } else {
      slots[slot].store_at(arguments.size());
      arguments.append(prepared.bound_defaults[slot].name, value);
    }
  }
  [[nodiscard]] std::string& _add_note();
  void _check_required(const Text* action);

  // action.cpp
  void _take_action(const Value& value);
  [[nodiscard]] const Text* _action();

  // unknown_parameter.cpp
  void _unknown_parameter(std::string& problem, const Text& name) const;

  // coercion.cpp: the value as the handler takes it: the one that is given, or `changed`; null for one that cannot be
  // read, the problem noted
  [[nodiscard]] const Value* _coerced(const Param& param, const Value& value);
  [[nodiscard]] const Value* _within(const Param& param, const Value& coerced);

  // enumerations_and_bounds.cpp: the same, for a value that its parameter does not take as it is
  [[nodiscard]] const Value* _enum_value(const Param& param, const Value& value);
  [[nodiscard]] const Text* _named_value(const Param& param, const Value& value);
  [[nodiscard]] const Value* _enum_values(const Param& param, const Value& list);
  [[nodiscard]] const Value* _bounded(const Param& param, const Value& value);

  const ToolSpec& spec;
  const detail::PreparedTool& prepared;
  ArgumentMap& arguments;
  std::vector<std::string>& notes;
  bool& alias_hit;
  Problems problems;
  Value changed;       ///< what an argument was changed to, until it is stored
  Text _named_action;  ///< what stands in the action's slot, where the request put it there
  SlotStates slots;    ///< which declared names were given as such, and which stand in `arguments`
  bool _action_refused = false;
};

}  // namespace tool_binding
