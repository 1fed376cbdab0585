// SPDX-License-Identifier: MIT
#include "progress.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <iostream>

#include "input.hpp"

namespace tool_binding::cli {

namespace {

constexpr std::string_view whole_line_erased = "\r\033[K";
constexpr std::uint64_t megabyte = 1'000'000;

/// The bytes of all files; 0 when one of them is no file of a size.
std::uint64_t size_of(const std::vector<std::string>& paths) {
  std::uint64_t size = 0;
  for (const std::string& path : paths) {
    struct stat state = {};
    const int failed = path == standard_input ? fstat(STDIN_FILENO, &state) : stat(path.c_str(), &state);
    if (failed != 0 || !S_ISREG(state.st_mode)) {
      return 0;
    }
    size += static_cast<std::uint64_t>(state.st_size);
  }
  return size;
}

}  // namespace

Progress::Progress(const std::vector<std::string>& paths) : is_shown_(isatty(STDERR_FILENO) != 0) {
  if (is_shown_) {
    all_ = size_of(paths);
    next_ = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  }
}

Progress::~Progress() {
  if (is_shown_) {
    std::cerr << whole_line_erased;
  }
}

void Progress::advance(std::size_t bytes) {
  read_ += bytes;
  if (!is_shown_ || std::chrono::steady_clock::now() < next_) {
    return;
  }
  next_ = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
  std::cerr << whole_line_erased << read_ / megabyte << " MB read";
  if (all_ != 0) {
    std::cerr << ", " << 100 * read_ / all_ << " %";
  }
}

}  // namespace tool_binding::cli
