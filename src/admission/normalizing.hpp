// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "admission/argument_value.hpp"

namespace tool_binding {

/// What admission knows of one declared name.
struct Slot {
  static constexpr std::uint32_t not_stored = std::numeric_limits<std::uint32_t>::max();

  std::uint32_t place = not_stored;  ///< in the admitted arguments
  bool named = false;                ///< whether the request gave it as such, with a value that says something

  [[nodiscard]] bool stored() const noexcept { return place != not_stored; }
};

/// The slots of a tool, without a heap allocation for all but very large tools.
class Slots {
 public:
  explicit Slots(std::size_t count) {
    if (count > here.size()) {
      elsewhere_.resize(count);
      slots_ = elsewhere_.data();
    } else {
      slots_ = here.data();
      std::fill_n(slots_, count, Slot());
    }
  }
  Slots(const Slots&) = delete;
  Slots& operator=(const Slots&) = delete;

  [[nodiscard]] Slot& operator[](std::size_t slot) noexcept { return slots_[slot]; }

 private:
  union {
    std::array<Slot, 32> here;  ///< of which no more are made than a tool needs
  };
  std::vector<Slot> elsewhere_;
  Slot* slots_ = nullptr;
};

/// The state of one request's admission: what was taken, changed and found wrong. Lives for one call: every argument is
/// handed to `take` once, in the request's order, and then `settle` is called once.
class Normalizing {
 public:
  /// A fresh state for a request of `argument_count` arguments. `admission` is empty, and outlives the state.
  Normalizing(const detail::CompiledTool& tool, std::size_t argument_count, Admission& admission);

  /// Takes one argument of the request.
  void take(const Text& name, const Value& value);

  /// Settles which action the request runs, and what that needs.
  void settle();

 private:
  using Param = detail::CompiledParam;

  // taking.cpp
  void _take_reserved_or_other(const Text& name, const Value& value);
  void _take_synonym(const Text& name, const Param& param, const Value& value);
  void _take_value(const Text& name, const Param& param, const Value& value);
  void _take_action(const Value& value);
  void _unknown_parameter(const Text& name, const Value& value);
  void _store(std::uint32_t slot, const Value& value) {
    if (slots[slot].stored()) {
      arguments.replace_at(slots[slot].place, value);
    } else {
      slots[slot].place = static_cast<std::uint32_t>(arguments.size());
      arguments.append(spec.bound_defaults[slot].name, value);
    }
  }

  // settling.cpp
  [[nodiscard]] std::optional<Text> _action();
  void _check_required(const std::optional<Text>& action);

  const detail::CompiledTool& spec;
  ArgumentMap& arguments;
  Findings& findings;
  bool& alias_hit;
  bool& has_problems;
  Slots slots;
  bool _action_refused = false;
};

}  // namespace tool_binding
