// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cfenv>

namespace tool_binding {

/// Calls `check` in each of the four rounding modes of IEEE 754, and returns to rounding to nearest.
template <class Check>
void in_every_rounding_mode(const Check& check) {
  for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    ASSERT_EQ(std::fesetround(mode), 0);
    SCOPED_TRACE(mode);
    check();
    EXPECT_EQ(std::fegetround(), mode);
  }
  std::fesetround(FE_TONEAREST);
}

}  // namespace tool_binding
