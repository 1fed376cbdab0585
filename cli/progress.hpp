// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tool_binding::cli {

/// A line on standard error that shows how much was read; nothing unless that is a terminal. It is gone at the end.
class Progress {
 public:
  /// Of files whose sizes are known the line shows the part that was read.
  explicit Progress(const std::vector<std::string>& paths);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  /// Shows that more bytes were read, a few times a second at most.
  void advance(std::size_t bytes);

 private:
  bool is_shown_;
  std::uint64_t all_ = 0;  ///< 0 where it is not known
  std::uint64_t read_ = 0;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace tool_binding::cli
