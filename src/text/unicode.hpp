// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

/// Facts of the Unicode Character Database about single code points. Any 32-bit number may be asked about: a number
/// that is not a code point has no property.
namespace tool_binding::text {

/// What the functions below call for anything but ASCII.
[[nodiscard]] bool is_white_space_beyond_ascii(char32_t code_point) noexcept;
[[nodiscard]] int decimal_digit_beyond_ascii(char32_t code_point) noexcept;
[[nodiscard]] bool is_printable_beyond_ascii(char32_t code_point) noexcept;

/// Whether stripping removes `code_point`: the property White_Space and the separators U+001C to U+001F.
[[nodiscard]] inline bool is_white_space(char32_t code_point) noexcept {
  constexpr std::uint64_t ascii = 0x1'F000'3E00;
  return code_point < 0x80 ? code_point <= 0x20 && (ascii >> code_point & 1U) != 0
                           : is_white_space_beyond_ascii(code_point);
}

/// The value of a decimal digit of any script (general category Nd), -1 for any other code point.
[[nodiscard]] inline int decimal_digit(char32_t code_point) noexcept {
  if (code_point < 0x80) {
    return code_point >= U'0' && code_point <= U'9' ? static_cast<int>(code_point - U'0') : -1;
  }
  return decimal_digit_beyond_ascii(code_point);
}

/// Whether the quoted form shows `code_point` as it is: its general category is none of Cc, Cf, Cs, Co, Cn, Zl and Zp,
/// and Zs only for the space.
[[nodiscard]] inline bool is_printable(char32_t code_point) noexcept {
  return code_point < 0x80 ? code_point >= 0x20 && code_point < 0x7F : is_printable_beyond_ascii(code_point);
}

/// The derived properties that the condition Final_Sigma asks for.
[[nodiscard]] bool is_cased(char32_t code_point) noexcept;
[[nodiscard]] bool is_case_ignorable(char32_t code_point) noexcept;

/// The full lower case of `code_point` without regard to its neighbours: one code point and a zero, or two.
[[nodiscard]] std::array<char32_t, 2> lower_mapping(char32_t code_point) noexcept;

}  // namespace tool_binding::text
