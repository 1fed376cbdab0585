// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "tool_binding/detail/cell.hpp"

#pragma GCC visibility push(default)

namespace tool_binding {

class Integer;
[[nodiscard]] std::strong_ordering operator<=>(const Integer& left, const Integer& right) noexcept;

/// An integer of any width, 16 bytes, copied without copying its digits.
///
/// It is read, written, compared and turned into a double or made from one; nothing is calculated with it. An integer
/// of 64 bits stands in the object itself, a wider one as its canonical decimal digits in a shared node. Every
/// operation is linear in the number of digits, and none depends on a locale.
class Integer {
 public:
  Integer() noexcept : Integer(0) {}

  template <std::integral Number>
  requires(!std::same_as<Number, bool>) Integer(Number value)  // NOLINT(google-explicit-constructor)
      : cell_(made_from(value)) {}

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
  friend std::strong_ordering operator<=>(const Integer& left, const Integer& right) noexcept;

  /// Order by exact value, the integer not being rounded first; unordered for a NaN.
  [[nodiscard]] std::partial_ordering compare(double right) const noexcept;

 private:
  friend class Value;
  explicit Integer(const detail::Cell& cell) noexcept : cell_(cell) {}

  template <std::integral Number>
  static detail::Cell made_from(Number value) {
    if constexpr (std::unsigned_integral<Number> && sizeof(Number) >= sizeof(std::int64_t)) {
      if (value > static_cast<Number>(std::numeric_limits<std::int64_t>::max())) {
        return wide_from(value);
      }
    }
    return {detail::Tag::integer, static_cast<std::int64_t>(value)};
  }
  static detail::Cell wide_from(std::uint64_t value);
  static detail::Cell wide_from_digits(bool negative, std::string_view digits);

  [[nodiscard]] bool is_wide() const noexcept { return cell_.holds_node(); }
  [[nodiscard]] std::int64_t small() const noexcept { return cell_.content<std::int64_t>(); }
  [[nodiscard]] std::string_view digits() const noexcept { return cell_.text(); }

  detail::Cell cell_;
};

static_assert(sizeof(Integer) == 16);

}  // namespace tool_binding

#pragma GCC visibility pop
