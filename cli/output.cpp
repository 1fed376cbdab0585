// SPDX-License-Identifier: MIT
#include "output.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

namespace tool_binding::cli {

bool print(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(STDOUT_FILENO, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      return false;
    } else if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "cannot write standard output");
    }
  }
  return true;
}

}  // namespace tool_binding::cli
