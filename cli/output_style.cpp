// SPDX-License-Identifier: MIT
#include "output_style.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace tool_binding::cli {

namespace {

bool has_colour() noexcept {
  const char* const terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr &&
         (terminal == nullptr || std::string_view(terminal) != "dumb");
}

std::size_t output_width() noexcept {
  constexpr std::size_t narrowest = 60;
  constexpr std::size_t widest = 160;
  winsize size = {};
  const bool is_known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
  return is_known ? std::clamp<std::size_t>(size.ws_col, narrowest, widest) : 100;
}

}  // namespace

report::TextStyle output_style(Colour colour) noexcept {
  report::TextStyle style = {.width = output_width()};
  if (colour == Colour::always || (colour == Colour::automatic && has_colour())) {
    style.heading = "\033[1m";
    style.good = "\033[32m";
    style.changed = "\033[33m";
    style.bad = "\033[31m";
    style.aside = "\033[2m";
    style.off = "\033[0m";
  }
  return style;
}

}  // namespace tool_binding::cli
