// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "admission/argument_value.hpp"
#include "values/small_vector.hpp"

namespace tool_binding {

/// What admission knows of one declared name.
struct Slot {
  static constexpr std::uint32_t not_stored = std::numeric_limits<std::uint32_t>::max();

  std::uint32_t index = not_stored;  ///< of its value in the row
  bool named = false;                ///< whether the request gave it as such, with a value that says something

  [[nodiscard]] bool stored() const noexcept { return index != not_stored; }
};

/// The state of one request's admission: what was taken, changed and found wrong. Lives for one call.
///
/// What is admitted goes into a `Row`, which says where: `add(slot, value)` puts the first value of a slot into the row
/// and returns its index there, `replace(index, value)` puts a later one at that index, `at(index)` is the value there,
/// and `add_action(name)` takes the default action of a tool that declares no actions.
template <class Row>
class Normalizing {
 public:
  /// A fresh state. `findings` is empty; both outlive the state.
  Normalizing(const detail::CompiledTool& tool, Row& admitted, Findings& found)
      : spec(tool), row(admitted), findings(found), slots(tool.bound_defaults.size(), Slot()) {}

  /// Takes the arguments of the request in their order, then settles which action it runs, and what that needs.
  void admit(const ArgumentMap& arguments) {
    for (const auto& [name, value] : arguments) {
      _take(name, value);
    }
    _settle();
  }

  /// Whether the request named a parameter or an action by a synonym.
  [[nodiscard]] bool has_alias_hit() const noexcept { return alias_hit; }

 private:
  using Param = detail::CompiledParam;

  // taking.hpp
  void _take(const Text& name, const Value& value);
  void _take_reserved_or_other(const Text& name, const Value& value);
  void _take_synonym(const Text& name, const Param& param, const Value& value);
  void _take_value(const Text& name, const Param& param, const Value& value);
  void _take_action(const Value& value);
  void _unknown_parameter(const Text& name, const Value& value);
  template <class Content>
  void _store(std::uint32_t slot, Content&& value) {
    if (slots[slot].stored()) {
      row.replace(slots[slot].index, std::forward<Content>(value));
    } else {
      slots[slot].index = row.add(slot, std::forward<Content>(value));
    }
  }

  // settling.hpp
  void _settle();
  [[nodiscard]] std::optional<Text> _action();
  void _check_required(const std::optional<Text>& action);

  const detail::CompiledTool& spec;
  Row& row;
  Findings& findings;
  bool alias_hit = false;
  SmallVector<Slot, 32> slots;  ///< of the tool's names
  bool _action_refused = false;
};

}  // namespace tool_binding
