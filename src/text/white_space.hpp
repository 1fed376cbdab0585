// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// White space at the ends of a text, which every reader of the layer ignores in the same way.
namespace tool_binding::text {

/// `text` without the white space at its start; the view is part of `text`.
[[nodiscard]] std::string_view strip_start(std::string_view text) noexcept;

/// The same at its end.
[[nodiscard]] std::string_view strip_end(std::string_view text) noexcept;

/// Whether `byte` is a code point in itself, and certainly no white space.
[[nodiscard]] constexpr bool is_visible(char byte) noexcept { return byte > ' ' && byte <= '~'; }

/// `text` without the white space at both ends; the view is part of `text`.
[[nodiscard]] inline std::string_view strip(std::string_view text) noexcept {
  const bool is_stripped = !text.empty() && is_visible(text.front()) && is_visible(text.back());
  return is_stripped ? text : strip_end(strip_start(text));
}

/// Whether nothing is left of `text` once it is stripped.
[[nodiscard]] inline bool is_blank(std::string_view text) noexcept {
  return (text.empty() || !is_visible(text.front())) && strip_start(text).empty();
}

}  // namespace tool_binding::text
