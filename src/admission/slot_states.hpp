// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tool_binding {

/// What admission knows of one declared name; nothing at first, which is zero.
class SlotState {
 public:
  /// Whether the admitted arguments hold it, and at which place.
  [[nodiscard]] bool stored() const noexcept { return place() != 0; }
  [[nodiscard]] std::size_t place_stored() const noexcept { return place() - 1; }
  void store_at(std::size_t place) noexcept { bits_ = static_cast<std::uint32_t>(2 * (place + 1)) + (bits_ & 1U); }

  /// Whether the request gave it by its declared name, with a value that says something.
  [[nodiscard]] bool named() const noexcept { return (bits_ & 1U) != 0; }
  void name() noexcept { bits_ |= 1U; }

 private:
  [[nodiscard]] std::size_t place() const noexcept { return bits_ >> 1U; }

  std::uint32_t bits_;  ///< the place, counted from 1, and below it whether it was named
};

/// A state for each slot of a tool, without a heap allocation for all but very large tools.
class SlotStates {
 public:
  explicit SlotStates(std::size_t count) {
    if (count > inline_states_.size()) {
      more_states_.resize(count);
      states_ = more_states_.data();
    } else {
      std::fill_n(states_, count, SlotState());
    }
  }
  SlotStates(const SlotStates&) = delete;
  SlotStates& operator=(const SlotStates&) = delete;

  [[nodiscard]] SlotState& operator[](std::size_t slot) noexcept { return states_[slot]; }

 private:
  std::array<SlotState, 32> inline_states_;
  std::vector<SlotState> more_states_;
  SlotState* states_ = inline_states_.data();
};

}  // namespace tool_binding
