// SPDX-License-Identifier: MIT
#include "types/numerals.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

#include "text/code_points.hpp"
#include "text/unicode.hpp"
#include "text/white_space.hpp"
#include "tool_binding/detail/rounding.hpp"

namespace tool_binding::types {
namespace {

constexpr std::size_t digits_of_any_int64 = std::numeric_limits<std::int64_t>::digits10;

/// The longest numeral that is worth a try as it is.
constexpr std::size_t longest_plain_numeral = 64;

/// Where no double lies on either side, with room to spare: below the smallest and beyond the largest power of ten.
constexpr std::int64_t beyond_any_double = 400;

/// More than any text has digits, and little enough to take one digit more.
constexpr std::int64_t most_exponent = 100'000'000'000'000'000;

/// A decimal numeral without its sign: the value is 0.`digits` times ten to the power of `exponent`.
struct Decimal {
  std::string digits;
  std::int64_t exponent;
};

struct Word {
  std::string_view spelling;
  double value;
};

constexpr Word words[] = {
    {"inf", std::numeric_limits<double>::infinity()},
    {"infinity", std::numeric_limits<double>::infinity()},
    {"nan", std::numeric_limits<double>::quiet_NaN()},
};

constexpr bool is_ascii_digit(char byte) noexcept { return byte >= '0' && byte <= '9'; }

/// Takes an optional sign from the start of `rest`: whether it is a minus.
bool take_sign(std::string_view& rest) noexcept {
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) {
    rest.remove_prefix(1);
  }
  return negative;
}

/// Takes one digit from the start of `rest` and appends it to `digits` as ASCII.
bool take_digit(std::string_view& rest, std::string& digits) {
  if (rest.empty()) {
    return false;
  }
  const text::CodePoint next = text::next_code_point(rest);
  const int value = text::decimal_digit(next.value);
  if (value < 0) {
    return false;
  }
  digits += static_cast<char>('0' + value);
  rest.remove_prefix(next.size);
  return true;
}

/// Takes a run of digits, each two with at most one "_" between them, and appends them to `digits` as ASCII. An "_"
/// that is not between two digits stays in `rest`. Returns the number of digits.
std::size_t take_digits(std::string_view& rest, std::string& digits) {
  const std::size_t before = digits.size();
  bool more = take_digit(rest, digits);
  while (more) {
    std::string_view joined = rest;
    if (joined.starts_with('_')) {
      joined.remove_prefix(1);
    }
    more = take_digit(joined, digits);
    if (more) {
      rest = joined;
    }
  }
  return digits.size() - before;
}

std::optional<Integer> read_short_integer(std::string_view digits, bool negative) noexcept {
  if (digits.empty() || digits.size() > digits_of_any_int64) {
    return std::nullopt;
  }
  std::int64_t value = 0;
  for (const char digit : digits) {
    if (!is_ascii_digit(digit)) {
      return std::nullopt;
    }
    value = value * 10 + (digit - '0');
  }
  return Integer(negative ? -value : value);
}

/// The numerals of everyday requests as they are: ASCII digits, no "_", within the range of doubles.
std::optional<double> read_plain_numeral(std::string_view unsigned_text) noexcept {
  if (unsigned_text.empty() || unsigned_text.size() > longest_plain_numeral) {
    return std::nullopt;
  }
  if (!is_ascii_digit(unsigned_text.front()) && unsigned_text.front() != '.') {
    return std::nullopt;
  }
  double value = 0;
  const char* const end = unsigned_text.data() + unsigned_text.size();
  const detail::RoundingToNearest rounding;
  const auto [stop, error] = std::from_chars(unsigned_text.data(), end, value);
  return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<double> read_word(std::string_view unsigned_text) noexcept {
  const auto same_letter = [](char byte, char letter) { return (byte | 0x20) == letter; };
  for (const Word& word : words) {
    if (std::equal(unsigned_text.begin(), unsigned_text.end(), word.spelling.begin(), word.spelling.end(),
                   same_letter)) {
      return word.value;
    }
  }
  return std::nullopt;
}

/// Takes "e", an optional sign and digits from the start of `rest`; an exponent that no text can make up for is cut.
std::optional<std::int64_t> take_exponent(std::string_view& rest) {
  if (!rest.starts_with('e') && !rest.starts_with('E')) {
    return 0;
  }
  rest.remove_prefix(1);
  const bool negative = take_sign(rest);
  std::string digits;
  if (take_digits(rest, digits) == 0) {
    return std::nullopt;
  }
  std::int64_t exponent = 0;
  for (const char digit : digits) {
    exponent = std::min(exponent * 10 + (digit - '0'), most_exponent);
  }
  return negative ? -exponent : exponent;
}

std::optional<Decimal> read_decimal(std::string_view rest) {
  std::string digits;
  const std::size_t whole_digits = take_digits(rest, digits);
  if (rest.starts_with('.')) {
    rest.remove_prefix(1);
    take_digits(rest, digits);
  }
  if (digits.empty()) {
    return std::nullopt;
  }
  const std::optional<std::int64_t> exponent = take_exponent(rest);
  if (!exponent || !rest.empty()) {
    return std::nullopt;
  }
  return Decimal{std::move(digits), static_cast<std::int64_t>(whole_digits) + *exponent};
}

/// The nearest double. Once no zero leads the digits, the exponent alone says on which side of the doubles a numeral
/// lies, however many zeros were written to make up for it.
double nearest_double(const Decimal& decimal) {
  const std::size_t leading_zeros = std::min(decimal.digits.find_first_not_of('0'), decimal.digits.size());
  const std::int64_t exponent = decimal.exponent - static_cast<std::int64_t>(leading_zeros);
  if (leading_zeros == decimal.digits.size() || exponent < -beyond_any_double) {
    return 0;
  }
  if (exponent > beyond_any_double) {
    return std::numeric_limits<double>::infinity();
  }
  const std::string canonical = "0." + decimal.digits.substr(leading_zeros) + "e" + std::to_string(exponent);
  double value = 0;
  const detail::RoundingToNearest rounding;
  const auto [stop, error] = std::from_chars(canonical.data(), canonical.data() + canonical.size(), value);
  if (error == std::errc::result_out_of_range) {
    return exponent > 0 ? std::numeric_limits<double>::infinity() : 0;
  }
  return value;
}

}  // namespace

std::optional<Integer> read_integer(std::string_view text) {
  std::string_view rest = text::strip(text);
  const bool negative = take_sign(rest);
  if (std::optional<Integer> value = read_short_integer(rest, negative)) {
    return value;
  }
  std::string digits(negative ? "-" : "");
  if (take_digits(rest, digits) == 0 || !rest.empty()) {
    return std::nullopt;
  }
  return Integer::from_decimal(digits);
}

std::optional<double> read_floating(std::string_view text) {
  std::string_view rest = text::strip(text);
  const bool negative = take_sign(rest);
  std::optional<double> value = read_plain_numeral(rest);
  if (!value) {
    value = read_word(rest);
  }
  if (!value) {
    const std::optional<Decimal> decimal = read_decimal(rest);
    value = decimal ? std::optional(nearest_double(*decimal)) : std::nullopt;
  }
  return value && negative ? -*value : value;
}

}  // namespace tool_binding::types
