// SPDX-License-Identifier: MIT
#include "tool_binding/integer.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <system_error>

#include "tool_binding/detail/numbers.hpp"
#include "tool_binding/detail/rounding.hpp"
#include "tool_binding/errors.hpp"

namespace tool_binding {

namespace {

/// The least double above every 64-bit integer.
constexpr double beyond_int64 = 9223372036854775808.0;

/// A sign, and at most 309 digits before the point of a double.
using DoubleDigits = std::array<char, 320>;

/// The exact decimal digits of a whole double.
std::string_view exact_digits(double whole, DoubleDigits& buffer) noexcept {
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), whole, std::chars_format::fixed, 0);
  return {buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())};
}

bool is_negative(std::string_view digits) noexcept { return digits.front() == '-'; }

/// Order of two integers written canonically.
std::strong_ordering compare_digits(std::string_view left, std::string_view right) noexcept {
  if (is_negative(left) != is_negative(right)) {
    return is_negative(left) ? std::strong_ordering::less : std::strong_ordering::greater;
  }
  const auto by_size = left.size() <=> right.size();
  const auto by_magnitude = by_size != 0 ? by_size : left <=> right;
  return is_negative(left) ? 0 <=> by_magnitude : by_magnitude;
}

std::partial_ordering compare_small(std::int64_t left, double right) noexcept {
  if (detail::is_exact_double(left)) {
    return static_cast<double>(left) <=> right;
  }
  if (right >= beyond_int64) {
    return std::partial_ordering::less;
  }
  if (right < -beyond_int64) {
    return std::partial_ordering::greater;
  }
  const auto whole = static_cast<std::int64_t>(right);
  if (left != whole) {
    return left <=> whole;
  }
  return 0.0 <=> (right - std::trunc(right));
}

/// The nearest double, ties to even, whatever the rounding of this thread: the bits that a double has no room for are
/// rounded as integers, and what is left is converted exactly.
double nearest_double(std::int64_t value) noexcept {
  const std::uint64_t magnitude = value < 0 ? -static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  const int beyond = static_cast<int>(std::bit_width(magnitude)) - std::numeric_limits<double>::digits;
  if (beyond <= 0) {
    return static_cast<double>(value);
  }
  const std::uint64_t unit = std::uint64_t{1} << beyond;
  const bool is_odd = (magnitude & unit) != 0;
  const std::uint64_t rounded = (magnitude + unit / 2 - (is_odd ? 0 : 1)) & ~(unit - 1);
  const auto nearest = static_cast<double>(rounded);
  return value < 0 ? -nearest : nearest;
}

bool is_digit(char character) noexcept { return character >= '0' && character <= '9'; }

}  // namespace

detail::Cell Integer::wide_from(std::uint64_t value) {
  const std::string digits = std::to_string(value);
  return wide_from_digits(false, digits);
}

detail::Cell Integer::wide_from_digits(bool negative, std::string_view digits) {
  detail::TextNode* const node = detail::new_text_node(digits.size() + (negative ? 1 : 0));
  char* out = node->data();
  if (negative) {
    *out++ = '-';
  }
  std::memcpy(out, digits.data(), digits.size());
  return {detail::Tag::integer_node, static_cast<detail::Node*>(node)};
}

Integer Integer::from_decimal(std::string_view digits) {
  const bool negative = !digits.empty() && is_negative(digits);
  std::string_view magnitude = digits.substr(negative ? 1 : 0);
  if (magnitude.empty() || !std::all_of(magnitude.begin(), magnitude.end(), is_digit)) {
    throw ValueError("an integer is written in decimal digits, after '-' for a negative one");
  }
  magnitude.remove_prefix(std::min(magnitude.find_first_not_of('0'), magnitude.size() - 1));
  std::int64_t small = 0;
  const auto read = std::from_chars(magnitude.data(), magnitude.data() + magnitude.size(), small);
  if (read.ec == std::errc()) {
    return negative ? Integer(-small) : Integer(small);
  }
  if (negative && magnitude == "9223372036854775808") {
    return {std::numeric_limits<std::int64_t>::min()};
  }
  return Integer(wide_from_digits(negative, magnitude));
}

Integer Integer::truncated(double value) {
  if (std::isnan(value)) {
    throw ValueError("NaN has no integer part");
  }
  if (std::isinf(value)) {
    throw std::overflow_error("an infinity has no integer part");
  }
  if (value >= -beyond_int64 && value < beyond_int64) {
    return {static_cast<std::int64_t>(value)};
  }
  DoubleDigits buffer;
  return from_decimal(exact_digits(value, buffer));
}

double Integer::to_double() const {
  if (!is_wide()) {
    return nearest_double(small());
  }
  double value = 0;
  const detail::RoundingToNearest rounding;
  const auto read = std::from_chars(digits().data(), digits().data() + digits().size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    throw std::overflow_error("the integer is too large for a floating number");
  }
  return value;
}

void Integer::append_to(std::string& out) const {
  if (is_wide()) {
    out.append(digits());
    return;
  }
  std::array<char, 20> buffer;
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), small());
  out.append(buffer.data(), written.ptr);
}

std::string Integer::to_string() const {
  std::string digits;
  append_to(digits);
  return digits;
}

std::strong_ordering operator<=>(const Integer& left, const Integer& right) noexcept {
  if (left.is_wide() && right.is_wide()) {
    return compare_digits(left.digits(), right.digits());
  }
  if (left.is_wide()) {
    return is_negative(left.digits()) ? std::strong_ordering::less : std::strong_ordering::greater;
  }
  if (right.is_wide()) {
    return is_negative(right.digits()) ? std::strong_ordering::greater : std::strong_ordering::less;
  }
  return left.small() <=> right.small();
}

std::partial_ordering Integer::compare(double right) const noexcept {
  if (std::isnan(right)) {
    return std::partial_ordering::unordered;
  }
  if (!is_wide()) {
    return compare_small(small(), right);
  }
  const bool right_is_beyond = std::abs(right) >= beyond_int64 && std::signbit(right) == is_negative(digits());
  if (!right_is_beyond || std::isinf(right)) {
    const bool left_is_greater = std::isinf(right) ? std::signbit(right) : !is_negative(digits());
    return left_is_greater ? std::partial_ordering::greater : std::partial_ordering::less;
  }
  DoubleDigits buffer;
  return compare_digits(digits(), exact_digits(right, buffer));
}

}  // namespace tool_binding
