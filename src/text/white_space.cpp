// SPDX-License-Identifier: MIT
#include "text/white_space.hpp"

#include "text/code_points.hpp"
#include "text/unicode.hpp"

namespace tool_binding::text {

std::string_view strip_start_closely(std::string_view text) noexcept {
  while (!text.empty()) {
    const CodePoint first = next_code_point(text);
    if (!is_white_space(first.value)) {
      break;
    }
    text.remove_prefix(first.size);
  }
  return text;
}

std::string_view strip_end_closely(std::string_view text) noexcept {
  while (!text.empty()) {
    const CodePoint last = last_code_point(text);
    if (!is_white_space(last.value)) {
      break;
    }
    text.remove_suffix(last.size);
  }
  return text;
}

}  // namespace tool_binding::text
