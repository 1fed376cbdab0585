// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The rows of the generated Unicode tables. Every table is in ascending order and its rows do not overlap.
namespace tool_binding::text {

/// The code points from `first` to `last`, both included.
struct CodePointRange {
  char32_t first;
  char32_t last;
};

/// Every `stride`th code point from `first` to `last` has the lower case `offset` further on.
struct LowerRange {
  char32_t first;
  char32_t last;
  char32_t stride;
  std::int32_t offset;
};

/// A code point whose lower case is two code points.
struct LowerPair {
  char32_t first;
  char32_t lower[2];
};

}  // namespace tool_binding::text
