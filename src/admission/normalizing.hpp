// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "admission/slot_states.hpp"
#include "registry/prepared_tool.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

/// The state of one request's admission: what was taken, changed and found wrong. Lives for one call: every argument is
/// handed to `take` once, in the request's order, and then `result` is asked once.
class Normalizing {
 public:
  /// A fresh state for a request of `argument_count` arguments. `tool` outlives the state.
  Normalizing(const ToolSpec& tool, std::size_t argument_count);

  /// Takes one argument of the request.
  void take(const Text& name, const Value& value);

  /// The normalized arguments, once every argument is taken. Throws ArgumentError when something was found wrong.
  [[nodiscard]] NormalizedArguments result();

 private:
  using Param = detail::PreparedParam;

  // normalize_arguments.cpp
  [[nodiscard]] bool _takes_synonym(const Text& name, const Param& param);
  void _store(std::uint32_t slot, const Text& name, Value value);
  void _check_required(const std::optional<Text>& action);

  // action.cpp
  void _take_action(const Value& value);
  [[nodiscard]] std::optional<Text> _action();

  // unknown_parameter.cpp
  [[nodiscard]] std::string _unknown_parameter(const Text& name) const;

  // coercion.cpp: null for a value that cannot be read, the problem noted
  [[nodiscard]] Value _coerced(const Param& param, const Value& value);
  [[nodiscard]] Value _enum_values(const Param& param, const Value& list);

  // enumerations_and_bounds.cpp
  [[nodiscard]] Value _enum_value(const Param& param, const Text& value);
  [[nodiscard]] Value _bounded(const Param& param, Value value);

  const ToolSpec& spec;
  const detail::PreparedTool& prepared;
  ArgumentMap arguments;
  std::vector<std::string> notes;
  std::vector<std::string> problems;
  bool alias_hit = false;
  SlotStates slots;  ///< which declared names were given as such, and which stand in `arguments`
  bool _action_refused = false;
};

}  // namespace tool_binding
