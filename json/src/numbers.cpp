// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>

#include "scalars.hpp"
#include "tool_binding/detail/rounding.hpp"

namespace tool_binding::json {

namespace {

/// Integers of this many digits fit 64 bits, and those of that many are doubles.
constexpr std::size_t digits_of_any_integer = std::numeric_limits<std::int64_t>::digits10;
constexpr std::size_t digits_of_any_double = std::numeric_limits<double>::digits10;

/// The powers of ten that are doubles, as far as digits before or behind a point ask for them.
constexpr std::array<double, digits_of_any_double + 1> powers_of_ten = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Takes the parts of a number in their order from the front of a token.
class NumberParts {
 public:
  NumberParts(const Tokens& tokens, std::size_t token)
      : tokens_(tokens), begin_(tokens.begin_of(token)), spelling_(tokens.whole(token)) {}

  [[nodiscard]] std::string_view spelling() const noexcept { return spelling_; }
  [[nodiscard]] bool at_end() const noexcept { return taken_ == spelling_.size(); }

  bool take(char wanted) noexcept {
    if (at_end() || spelling_[taken_] != wanted) {
      return false;
    }
    ++taken_;
    return true;
  }

  void take_digits() {
    if (!at_digit()) {
      fail("a digit is missing");
    }
    for (; at_digit(); ++taken_, ++digits_) {
      number_ = 10 * number_ + static_cast<std::uint64_t>(spelling_[taken_] - '0');
    }
  }

  void take_integer_part() {
    if (!take('0')) {
      take_digits();
    } else if (at_digit()) {
      fail("no digit may follow a leading zero");
    }
  }

  /// How many digits were taken, but for a leading zero, and the number that they make as far as it fits 64 bits.
  [[nodiscard]] std::size_t digits() const noexcept { return digits_; }
  [[nodiscard]] std::uint64_t number() const noexcept { return number_; }

  [[noreturn]] void fail(std::string_view words) const { tokens_.fail(begin_ + taken_, words); }

 private:
  [[nodiscard]] bool at_digit() const noexcept {
    return !at_end() && spelling_[taken_] >= '0' && spelling_[taken_] <= '9';
  }

  const Tokens& tokens_;
  std::size_t begin_;
  std::string_view spelling_;
  std::size_t taken_ = 0;
  std::size_t digits_ = 0;
  std::uint64_t number_ = 0;
};

Value integer_of(const NumberParts& parts, bool is_negative) {
  if (parts.digits() > digits_of_any_integer) {
    return Integer::from_decimal(parts.spelling());
  }
  const auto number = static_cast<std::int64_t>(parts.number());
  return is_negative ? -number : number;
}

/// The exponent behind "e", one of more than 64 bits being clamped.
std::int64_t exponent_of(std::string_view spelling) noexcept {
  const std::size_t mark = spelling.find_first_of("eE");
  if (mark == std::string_view::npos) {
    return 0;
  }
  std::string_view digits = spelling.substr(mark + 1);
  digits.remove_prefix(digits.front() == '+' ? 1 : 0);
  std::int64_t exponent = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc()) {
    constexpr std::int64_t edge = std::numeric_limits<std::int64_t>::max() / 2;
    exponent = digits.front() == '-' ? -edge : edge;
  }
  return exponent;
}

/// The double for a number so large or so small that it has none of its own: an infinity or a zero, of the number's
/// sign. Which of them, its decimal exponent says, which is far from zero in either case.
double beyond_range(std::string_view spelling) noexcept {
  const std::string_view mantissa = spelling.substr(0, spelling.find_first_of("eE"));
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t leading = mantissa.find_first_of("123456789");
  const auto shift = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading);
  const double size = exponent_of(spelling) + shift > 0 ? std::numeric_limits<double>::infinity() : 0.0;
  return spelling.front() == '-' ? -size : size;
}

double double_of(std::string_view spelling) noexcept {
  double value = 0;
  const detail::RoundingToNearest rounding;
  const auto result = std::from_chars(spelling.data(), spelling.data() + spelling.size(), value);
  return result.ec == std::errc::result_out_of_range ? beyond_range(spelling) : value;
}

}  // namespace

Value read_number(const Tokens& tokens, std::size_t token) {
  NumberParts parts(tokens, token);
  const bool is_negative = parts.take('-');
  parts.take_integer_part();
  if (parts.at_end()) {
    return integer_of(parts, is_negative);
  }
  const std::size_t whole_digits = parts.digits();
  if (parts.take('.')) {
    parts.take_digits();
    if (parts.at_end() && parts.digits() <= digits_of_any_double && detail::rounds_to_nearest()) {
      // Both are doubles, so that their quotient is rounded once, to the double nearest to what was written.
      const double number = static_cast<double>(parts.number()) / powers_of_ten[parts.digits() - whole_digits];
      return is_negative ? -number : number;
    }
  }
  if (parts.take('e') || parts.take('E')) {
    if (!parts.take('-')) {
      parts.take('+');
    }
    parts.take_digits();
  }
  if (!parts.at_end()) {
    parts.fail("a number cannot continue with this byte");
  }
  return double_of(parts.spelling());
}

}  // namespace tool_binding::json
