// SPDX-License-Identifier: MIT
#include "numbers.hpp"

#include <cmath>

namespace tool_binding::report {

std::string with_commas(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t place = digits.size(); place > 3; place -= 3) {
    digits.insert(place - 3, ",");
  }
  return digits;
}

std::string percent(std::uint64_t part, std::uint64_t whole) {
  const auto tenths = static_cast<std::uint64_t>(std::llround(share_of(part, whole) * 1000));
  if (tenths == 0) {
    return part == 0 ? "0%" : "< 0.1%";
  }
  return std::to_string(tenths / 10) + (tenths == 1000 ? "" : "." + std::to_string(tenths % 10)) + "%";
}

double share_of(std::uint64_t part, std::uint64_t whole) noexcept {
  return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

bool is_below(const Value& left, const Value& right) {
  if (left.is_integer()) {
    return right.is_integer() ? left.integer() < right.integer() : left.integer().compare(right.floating()) < 0;
  }
  return right.is_integer() ? right.integer().compare(left.floating()) > 0 : left.floating() < right.floating();
}

}  // namespace tool_binding::report
