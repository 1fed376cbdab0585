// SPDX-License-Identifier: MIT
#include "colours.hpp"

#include <unistd.h>

#include <cstdlib>

namespace tool_binding::cli {

Colours output_colours() noexcept {
  if (isatty(STDOUT_FILENO) == 0 || std::getenv("NO_COLOR") != nullptr) {
    return {};
  }
  return {.heading = "\033[1m", .good = "\033[32m", .bad = "\033[31m", .aside = "\033[2m", .off = "\033[0m"};
}

}  // namespace tool_binding::cli
