// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text as a sequence of Unicode code points.
///
/// Every byte string has one reading. A well-formed UTF-8 sequence is its code point; the three-byte form of a
/// surrogate is that surrogate, and two of them stay two code points; any other byte stands alone, as the lone
/// surrogate U+DC00 + byte.
namespace tool_binding::text {

/// A code point and the bytes that it takes in the text.
struct CodePoint {
  char32_t value;
  std::size_t size;
};

/// Whether `byte` is a code point in itself.
[[nodiscard]] constexpr bool is_ascii(char byte) noexcept { return static_cast<unsigned char>(byte) < 0x80; }

/// What the two readers below call for anything but ASCII.
[[nodiscard]] CodePoint next_beyond_ascii(std::string_view rest) noexcept;
[[nodiscard]] CodePoint last_beyond_ascii(std::string_view text) noexcept;

/// The first code point of `rest`. Precondition: `rest` is not empty.
[[nodiscard]] inline CodePoint next_code_point(std::string_view rest) noexcept {
  const char byte = rest.front();
  return is_ascii(byte) ? CodePoint{static_cast<unsigned char>(byte), 1} : next_beyond_ascii(rest);
}

/// The last code point of `text`, the one that reading from the front ends with. Precondition: `text` is not empty.
[[nodiscard]] inline CodePoint last_code_point(std::string_view text) noexcept {
  const char byte = text.back();
  return is_ascii(byte) ? CodePoint{static_cast<unsigned char>(byte), 1} : last_beyond_ascii(text);
}

/// Appends the UTF-8 form of `code_point`, a surrogate in its three-byte form. Precondition: at most U+10FFFF.
void append_code_point(std::string& out, char32_t code_point);

/// The code points of `text`.
[[nodiscard]] std::u32string decode(std::string_view text);

/// The number of code points of `text`.
[[nodiscard]] std::size_t count_code_points(std::string_view text) noexcept;

}  // namespace tool_binding::text
