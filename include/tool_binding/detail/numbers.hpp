// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding {

[[nodiscard]] inline bool is_number(const Value& value) noexcept { return value.is_integer() || value.is_floating(); }

namespace detail {

/// Whether `number`, and every integer nearer to zero, is a double.
[[nodiscard]] constexpr bool is_exact_double(std::int64_t number) noexcept {
  constexpr std::int64_t greatest = std::int64_t{1} << 53;
  return -greatest <= number && number <= greatest;
}

}  // namespace detail

/// Order by exact numeric value, neither side being rounded; unordered for a NaN. Precondition: both are numbers.
[[nodiscard]] inline std::partial_ordering compare_numbers(const Value& left, const Value& right) {
  TOOL_BINDING_ASSERT(is_number(left) && is_number(right));
  if (left.is_integer()) {
    return right.is_integer() ? left.integer() <=> right.integer() : left.integer().compare(right.floating());
  }
  return right.is_integer() ? 0 <=> right.integer().compare(left.floating()) : left.floating() <=> right.floating();
}

}  // namespace tool_binding
