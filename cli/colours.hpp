// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
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

enum class Colour : std::uint8_t { automatic, always, never };

/// The colours for standard output. Unless they were asked for, there are none but on a terminal, none where NO_COLOR
/// is set, and none where TERM says that the terminal has none.
[[nodiscard]] Colours output_colours(Colour colour) noexcept;

/// The columns of the terminal that standard output is, within what can be read; 100 for anything else.
[[nodiscard]] std::size_t output_width() noexcept;

}  // namespace tool_binding::cli
