// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace tool_binding::cli {

/// How parts of a text for people are set off; nothing does unless a person looks at a terminal.
struct Colours {
  std::string_view heading = {};
  std::string_view good = {};
  std::string_view changed = {};
  std::string_view bad = {};
  std::string_view aside = {};
  std::string_view off = {};
};

/// The colours for standard output: none unless it is a terminal, and none where NO_COLOR is set.
[[nodiscard]] Colours output_colours() noexcept;

/// The columns of the terminal that standard output is, within what can be read; 100 for anything else.
[[nodiscard]] std::size_t output_width() noexcept;

}  // namespace tool_binding::cli
