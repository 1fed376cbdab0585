// SPDX-License-Identifier: MIT
#include "colours.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace tool_binding::cli {

Colours output_colours() noexcept {
  if (isatty(STDOUT_FILENO) == 0 || std::getenv("NO_COLOR") != nullptr) {
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
