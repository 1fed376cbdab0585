// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/export.hpp"

/// The one reader of UTF-8, for the libraries of this project.
///
/// Every byte string has one reading. A well-formed UTF-8 sequence is its code point; the three-byte form of a
/// surrogate is that surrogate, and two of them stay two code points; any other byte is read alone, as the lone
/// surrogate U+DC00 + byte.
namespace tool_binding::text {

/// A code point and the bytes that it takes in the text.
struct CodePoint {
  char32_t value;
  std::size_t size;

  [[nodiscard]] constexpr bool is_surrogate() const noexcept { return value >= 0xD800 && value <= 0xDFFF; }
};

/// Whether `byte` is a code point in itself.
[[nodiscard]] constexpr bool is_ascii(char byte) noexcept { return static_cast<unsigned char>(byte) < 0x80; }

/// What the reader below calls for anything but ASCII.
[[nodiscard]] TOOL_BINDING_API CodePoint next_beyond_ascii(std::string_view rest) noexcept;

/// The first code point of `rest`. Precondition: `rest` is not empty.
[[nodiscard]] inline CodePoint next_code_point(std::string_view rest) noexcept {
  TOOL_BINDING_ASSERT(!rest.empty());
  const char byte = rest.front();
  return is_ascii(byte) ? CodePoint{static_cast<unsigned char>(byte), 1} : next_beyond_ascii(rest);
}

/// Appends the UTF-8 form of `code_point`, a surrogate in its three-byte form. Precondition: at most U+10FFFF.
TOOL_BINDING_API void append_code_point(std::string& out, char32_t code_point);

}  // namespace tool_binding::text
