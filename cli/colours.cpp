// SPDX-License-Identifier: MIT
#include "colours.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace tool_binding::cli {

namespace {

bool has_colour() noexcept {
  const char* const terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && std::getenv("NO_COLOR") == nullptr &&
         (terminal == nullptr || std::string_view(terminal) != "dumb");
}

}  // namespace

Colours output_colours(Colour colour) noexcept {
  if (colour == Colour::never || (colour == Colour::automatic && !has_colour())) {
    return {};
  }
  return {.heading = "\033[1m",
          .good = "\033[32m",
          .changed = "\033[33m",
          .bad = "\033[31m",
          .aside = "\033[2m",
          .off = "\033[0m"};
}

std::size_t output_width() noexcept {
  constexpr std::size_t narrowest = 60;
  constexpr std::size_t widest = 160;
  winsize size = {};
  const bool is_known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
  return is_known ? std::clamp<std::size_t>(size.ws_col, narrowest, widest) : 100;
}

}  // namespace tool_binding::cli
