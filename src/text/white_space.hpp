// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// White space at the ends of a text, which every reader of the layer ignores in the same way.
namespace tool_binding::text {

/// Whether `byte` is a code point in itself, and certainly no white space.
[[nodiscard]] constexpr bool is_visible(char byte) noexcept { return byte > ' ' && byte <= '~'; }

// Most texts begin and end with a visible byte; the others are looked at closely, code point by code point.

[[nodiscard]] std::string_view strip_start_closely(std::string_view text) noexcept;
[[nodiscard]] std::string_view strip_end_closely(std::string_view text) noexcept;

/// `text` without the white space at its start; the view is part of `text`.
[[nodiscard]] inline std::string_view strip_start(std::string_view text) noexcept {
  return !text.empty() && is_visible(text.front()) ? text : strip_start_closely(text);
}

/// The same without the white space at both ends.
[[nodiscard]] inline std::string_view strip(std::string_view text) noexcept {
  text = strip_start(text);
  return !text.empty() && is_visible(text.back()) ? text : strip_end_closely(text);
}

/// Whether nothing is left of `text` once it is stripped.
[[nodiscard]] inline bool is_blank(std::string_view text) noexcept { return strip_start(text).empty(); }

}  // namespace tool_binding::text
