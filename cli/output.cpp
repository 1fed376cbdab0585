// SPDX-License-Identifier: MIT
#include "output.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>

namespace tool_binding::cli {

bool Output::is_large() const noexcept {
  constexpr std::size_t large = std::size_t{64} * 1024;
  return text_.size() >= large;
}

bool Output::flush() {
  for (std::string_view rest = text_; !rest.empty();) {
    const ssize_t count = write(STDOUT_FILENO, rest.data(), rest.size());
    if (count >= 0) {
      rest.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      return false;
    } else if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "cannot write standard output");
    }
  }
  text_.clear();
  return true;
}

}  // namespace tool_binding::cli
