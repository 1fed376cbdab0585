// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// White space at the ends of a text, which every reader of the layer ignores in the same way.
namespace tool_binding::text {

/// `text` without the white space at its start; the view is part of `text`.
[[nodiscard]] std::string_view strip_start(std::string_view text) noexcept;

/// `text` without the white space at both ends; the view is part of `text`.
[[nodiscard]] std::string_view strip(std::string_view text) noexcept;

/// Whether nothing is left of `text` once it is stripped.
[[nodiscard]] inline bool is_blank(std::string_view text) noexcept {
  const bool begins_visibly = !text.empty() && text.front() > ' ' && text.front() <= '~';
  return !begins_visibly && strip_start(text).empty();
}

}  // namespace tool_binding::text
