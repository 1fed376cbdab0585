// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "tool_binding/report/pages.hpp"

namespace tool_binding::cli {

enum class Colour : std::uint8_t { automatic, always, never };

/// How pages for people look on standard output. They are as wide as its terminal, within what can be read, and 100
/// columns elsewhere. Unless colours were asked for, there are none but on a terminal, none where NO_COLOR is set, and
/// none where TERM says that the terminal has none.
[[nodiscard]] report::TextStyle output_style(Colour colour) noexcept;

}  // namespace tool_binding::cli
