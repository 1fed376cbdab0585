// SPDX-License-Identifier: MIT
#include "tool_binding/argument_type.hpp"

#include <charconv>
#include <stdexcept>

namespace tool_binding::detail {

std::optional<std::uint64_t> upper_half(const Value& integer) {
  if (!integer.is_integer() || integer.to_int64()) {
    return std::nullopt;
  }
  const std::string digits = integer.integer().to_string();
  std::uint64_t number = 0;
  const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return fault == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<double> nearest_double(const Value& integer) {
  try {
    return integer.integer().to_double();
  } catch (const std::overflow_error&) {
    return std::nullopt;
  }
}

}  // namespace tool_binding::detail
