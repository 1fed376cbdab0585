// SPDX-License-Identifier: MIT
#pragma once

#include <cfenv>

#include "tool_binding/detail/export.hpp"

/// The rounding of floating numbers, which a program may have set to something else than to nearest (IEEE 754). The
/// standard library's own readers of doubles take short cuts that hold for rounding to nearest only.
/// Nothing here is for a daemon's own use.
namespace tool_binding::detail {

/// Whether this thread rounds to nearest, as almost every one does.
[[nodiscard]] TOOL_BINDING_API bool rounds_to_nearest() noexcept;

/// While one lives, its thread rounds to nearest.
class TOOL_BINDING_API RoundingToNearest {
 public:
  RoundingToNearest() noexcept : changed_(!rounds_to_nearest()) {
    if (changed_) {
      change();
    }
  }
  ~RoundingToNearest() {
    if (changed_) {
      std::fesetenv(&before_);
    }
  }
  RoundingToNearest(const RoundingToNearest&) = delete;
  RoundingToNearest& operator=(const RoundingToNearest&) = delete;

 private:
  void change() noexcept;

  bool changed_;
  std::fenv_t before_;
};

}  // namespace tool_binding::detail
