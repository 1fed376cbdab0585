// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// The memory of this program, counted, and refused where a check wants it so.
namespace tool_binding::fuzz {

/// Blocks that are allocated and not given back.
[[nodiscard]] std::size_t live_blocks() noexcept;

/// While one lives, allocation number `first`, counted from 0, fails, and those after it too unless `once`.
class Refusing {
 public:
  Refusing(std::size_t first, bool once) noexcept;
  ~Refusing();
  Refusing(const Refusing&) = delete;
  Refusing& operator=(const Refusing&) = delete;

  /// Whether any allocation was refused.
  [[nodiscard]] bool refused() const noexcept;
};

}  // namespace tool_binding::fuzz
