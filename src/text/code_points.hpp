// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/code_points.hpp"

/// Text as a sequence of Unicode code points, from either end.
namespace tool_binding::text {

/// What the reader below calls for anything but ASCII.
[[nodiscard]] CodePoint last_beyond_ascii(std::string_view text) noexcept;

/// The last code point of `text`, the one that reading from the front ends with. Precondition: `text` is not empty.
[[nodiscard]] inline CodePoint last_code_point(std::string_view text) noexcept {
  TOOL_BINDING_ASSERT(!text.empty());
  const char byte = text.back();
  return is_ascii(byte) ? CodePoint{static_cast<unsigned char>(byte), 1} : last_beyond_ascii(text);
}

/// The code points of `text`.
[[nodiscard]] std::u32string decode(std::string_view text);

/// The number of code points of `text`.
[[nodiscard]] std::size_t count_code_points(std::string_view text) noexcept;

}  // namespace tool_binding::text
