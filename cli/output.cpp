// SPDX-License-Identifier: MIT
#include "output.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

#include "input.hpp"

namespace tool_binding::cli {

namespace {

[[noreturn]] void fail_to_write(const std::string& name) {
  throw std::system_error(errno, std::generic_category(), "cannot write " + name);
}

/// Writes all of the text; false when nobody reads it.
bool write_all(int descriptor, std::string_view text, const std::string& name) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count >= 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EPIPE) {
      return false;
    } else if (errno != EINTR) {
      fail_to_write(name);
    }
  }
  return true;
}

/// Closes a descriptor, whatever happens.
struct Closing {
  int descriptor;
  ~Closing() { close(descriptor); }
};

}  // namespace

bool print(std::string_view text) { return write_all(STDOUT_FILENO, text, "standard output"); }

void write_file(const std::string& path, std::string_view content) {
  if (path == standard_input) {
    print(content);
    return;
  }
  constexpr mode_t for_all = 0666;
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, for_all);
  if (descriptor < 0) {
    fail_to_write(path);
  }
  const Closing closing = {descriptor};
  write_all(descriptor, content, path);
}

}  // namespace tool_binding::cli
