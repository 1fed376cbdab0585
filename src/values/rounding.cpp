// SPDX-License-Identifier: MIT
#include "tool_binding/detail/rounding.hpp"

#include <limits>

namespace tool_binding::detail {

namespace {

/// Volatile, so that the sums below are made when they are asked for, in the rounding of that moment.
const volatile float smallest = std::numeric_limits<float>::min();

}  // namespace

/// Asks the arithmetic itself: what <cfenv> tells need not be what the unit does that calculates.
bool rounds_to_nearest() noexcept { return 1.0F + smallest == 1.0F - smallest; }

void RoundingToNearest::change() noexcept {
  std::fegetenv(&before_);
  std::fesetround(FE_TONEAREST);
}

}  // namespace tool_binding::detail
