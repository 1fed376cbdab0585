// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tool_binding::cli {

/// The path that stands for standard input.
inline constexpr const char* standard_input = "-";

/// The size of a file and when it was written to.
struct Written {
  std::intmax_t size = 0;
  std::intmax_t seconds = 0;
  std::intmax_t nanoseconds = 0;
  bool operator==(const Written&) const = default;
};

/// Ends a wait for input from another thread, once and for all.
class StopSignal {
 public:
  /// Throws std::system_error where the system has no more descriptors.
  StopSignal();
  StopSignal(const StopSignal&) = delete;
  StopSignal& operator=(const StopSignal&) = delete;
  ~StopSignal();

  void raise() const noexcept;
  [[nodiscard]] int descriptor() const noexcept { return descriptor_; }

 private:
  int descriptor_;
};

/// A file, or standard input, to be read from first to last.
class Input {
 public:
  /// Throws std::system_error for a file that cannot be opened.
  explicit Input(const std::string& path);
  Input(Input&& other) noexcept;
  Input& operator=(Input&&) = delete;
  ~Input();

  /// Reads what is there into `room`, waits only when nothing is, and returns how many bytes came: none at the end,
  /// and none once `stop` is raised. Throws std::system_error. Precondition: `room` is not empty.
  [[nodiscard]] std::size_t read(std::span<char> room, const StopSignal* stop = nullptr);

  /// What differs once a file has been written to; always the same for anything but a file. Throws std::system_error.
  [[nodiscard]] Written last_written() const;

 private:
  std::string path_;
  int descriptor_;
};

/// The whole content of a file. Throws std::system_error, also for a file that is written to meanwhile.
[[nodiscard]] std::string read_file(const std::string& path);

}  // namespace tool_binding::cli
