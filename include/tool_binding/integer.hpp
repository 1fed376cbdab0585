// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/cell.hpp"
#include "tool_binding/detail/export.hpp"

namespace tool_binding {

namespace detail {

template <class Type>
concept Character = std::same_as<Type, char> || std::same_as<Type, wchar_t> || std::same_as<Type, char8_t> ||
    std::same_as<Type, char16_t> || std::same_as<Type, char32_t>;

/// The standard's integers but for truth values and characters, which are integers by accident; `signed char` and
/// `unsigned char` are numbers of eight bits.
template <class Type>
concept WholeNumber = std::integral<Type> && !std::same_as<Type, bool> && !Character<Type>;

}  // namespace detail

class Integer;
[[nodiscard]] TOOL_BINDING_API std::strong_ordering operator<=>(const Integer& left, const Integer& right) noexcept;

/// An integer of any width, 16 bytes, copied without copying its digits.
///
/// It is read, written, compared and turned into a double or made from one; nothing is calculated with it. An integer
/// of 64 bits is held in the object itself, a wider one as its canonical decimal digits in a shared node. Every
/// operation is linear in the number of digits, and none depends on a locale. An integer that is moved from is zero.
class TOOL_BINDING_API Integer {
 public:
  Integer() noexcept : Integer(0) {}

  /// Of an integer type of any width, none of the types of characters.
  template <detail::WholeNumber Number>
  Integer(Number value) : cell_(made_from(value)) {}  // NOLINT(google-explicit-constructor)

  /// The integer of an optional "-" and one or more ASCII digits; leading zeros are dropped.
  /// Throws ValueError for any other text.
  [[nodiscard]] static Integer from_decimal(std::string_view digits);

  /// The integer of exactly `value`, a fraction being cut toward zero.
  /// Throws std::overflow_error for an infinity and ValueError for a NaN.
  [[nodiscard]] static Integer truncated(double value);

  /// The value where it fits 64 bits.
  [[nodiscard]] std::optional<std::int64_t> to_int64() const noexcept {
    return is_wide() ? std::nullopt : std::optional(small());
  }

  /// The nearest double, ties to even (IEEE 754). Throws std::overflow_error where the nearest is beyond the largest.
  [[nodiscard]] double to_double() const;

  /// The decimal digits, after "-" for a negative integer.
  [[nodiscard]] std::string to_string() const;
  void append_to(std::string& out) const;

  Integer(const Integer&) noexcept = default;
  Integer(Integer&& other) noexcept : cell_(other.cell_, detail::Tag::integer) {}
  Integer& operator=(Integer other) noexcept {
    cell_.swap(other.cell_);
    return *this;
  }
  ~Integer() = default;

  friend bool operator==(const Integer& left, const Integer& right) noexcept {
    return detail::same_text(left.cell_, right.cell_);
  }
  friend TOOL_BINDING_API std::strong_ordering operator<=>(const Integer& left, const Integer& right) noexcept;

  /// Writes the digits of `to_string`, whatever the stream's locale.
  friend TOOL_BINDING_API std::ostream& operator<<(std::ostream& out, const Integer& integer);

  /// Order by exact value, the integer not being rounded first; unordered for a NaN.
  [[nodiscard]] std::partial_ordering compare(double right) const noexcept;

 private:
  friend class Value;
  friend struct std::hash<Integer>;
  explicit Integer(const detail::Cell& cell) noexcept : cell_(cell) {}

  template <class Number>
  static detail::Cell made_from(Number value) {
    if constexpr (sizeof(Number) > sizeof(std::int64_t)) {
      return wide_from_number(value);
    } else if constexpr (std::unsigned_integral<Number> && sizeof(Number) == sizeof(std::int64_t)) {
      if (value > static_cast<Number>(INT64_MAX)) {
        return wide_from(value);
      }
    }
    return {detail::Tag::integer, static_cast<std::int64_t>(value)};
  }
  /// Of a type wider than 64 bits, which a compiler may have.
  template <class Number>
  static detail::Cell wide_from_number(Number value) {
    const auto cut = static_cast<std::int64_t>(value);
    if (static_cast<Number>(cut) == value && (cut < 0) == (value < 0)) {
      return {detail::Tag::integer, cut};
    }
    std::array<char, 3 * sizeof(Number)> digits;
    std::size_t begin = digits.size();
    for (Number left = value; left != 0; left /= 10) {
      const int digit = static_cast<int>(left % 10);
      digits[--begin] = static_cast<char>('0' + (digit < 0 ? -digit : digit));
    }
    return wide_from_digits(value < 0, {digits.data() + begin, digits.size() - begin});
  }
  static detail::Cell wide_from(std::uint64_t value);
  static detail::Cell wide_from_digits(bool negative, std::string_view digits);

  [[nodiscard]] bool is_wide() const noexcept { return cell_.holds_node(); }
  [[nodiscard]] std::int64_t small() const noexcept {
    TOOL_BINDING_ASSERT(!is_wide());
    return cell_.content<std::int64_t>();
  }
  [[nodiscard]] std::string_view digits() const noexcept { return cell_.text(); }

  detail::Cell cell_;
};

static_assert(sizeof(Integer) == 16);

}  // namespace tool_binding

namespace std {

/// Equal for equal integers.
template <>
struct hash<tool_binding::Integer> {
  [[nodiscard]] std::size_t operator()(const tool_binding::Integer& integer) const noexcept {
    return integer.is_wide() ? std::hash<std::string_view>{}(integer.digits())
                             : std::hash<std::int64_t>{}(integer.small());
  }
};

}  // namespace std
