// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tool_binding {

/// What admission knows of one declared name.
struct SlotState {
  std::uint32_t place = 0;  ///< of its entry in the admitted arguments, counted from 1; 0 while there is none
  bool named = false;       ///< whether the request gave it by its declared name, with a value that says something

  [[nodiscard]] bool stored() const noexcept { return place != 0; }
};

/// A state for each slot of a tool, without a heap allocation for all but very large tools.
class SlotStates {
 public:
  explicit SlotStates(std::size_t count) {
    if (count > inline_states_.size()) {
      more_states_.resize(count);
      states_ = more_states_.data();
    }
  }
  SlotStates(const SlotStates&) = delete;
  SlotStates& operator=(const SlotStates&) = delete;

  [[nodiscard]] SlotState& operator[](std::size_t slot) noexcept { return states_[slot]; }
  [[nodiscard]] const SlotState& operator[](std::size_t slot) const noexcept { return states_[slot]; }

 private:
  std::array<SlotState, 32> inline_states_;
  std::vector<SlotState> more_states_;
  SlotState* states_ = inline_states_.data();
};

}  // namespace tool_binding
