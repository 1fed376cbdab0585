// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <mutex>
#include <string>

namespace tool_binding::server::detail {

/// Writes messages to a file descriptor, each as a line and in one piece, from any thread. A reader who does not read
/// makes the writers wait.
class Output {
 public:
  explicit Output(int descriptor) noexcept : descriptor_(descriptor) {}

  void write(const std::string& message);

  /// Whether what is written still arrives somewhere.
  [[nodiscard]] bool is_open() const noexcept { return is_open_.load(); }

  /// Lets no further message begin.
  void close() noexcept { is_open_.store(false); }

 private:
  [[nodiscard]] bool write_all(const std::string& line) const;

  const int descriptor_;
  std::atomic<bool> is_open_{true};
  std::mutex mutex_;
  std::string line_;
};

}  // namespace tool_binding::server::detail
