// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <stop_token>
#include <utility>

/// What one call may cost, whatever it finds in the directory that is served.
namespace repo_daemon {

struct Limits {
  std::size_t files = 50'000;                  ///< that are listed
  std::size_t directories = 50'000;            ///< that are entered
  std::size_t entries = 500'000;               ///< of directories that are looked at
  std::size_t levels = 100;                    ///< below the directory that is asked for; each keeps a file open
  std::size_t name_bytes = 32 * 1024 * 1024;   ///< of the names looked at and the paths listed
  std::size_t file_bytes = 8 * 1024 * 1024;    ///< of one file that is read
  std::size_t read_bytes = 256 * 1024 * 1024;  ///< of all files that are read
  std::chrono::milliseconds time = std::chrono::seconds(10);
};

/// The bytes of a path from the root on, as a request gives it or a listing shows it.
inline constexpr std::size_t most_path_bytes = 4096;

/// When a call has to be done: in its time, or at once when nobody waits for it any more. Made as the call begins.
class Deadline {
 public:
  explicit Deadline(const Limits& limits, std::stop_token stop = {})
      : stop_(std::move(stop)), end_(std::chrono::steady_clock::now() + limits.time) {}

  [[nodiscard]] bool has_passed() const { return stop_.stop_requested() || std::chrono::steady_clock::now() >= end_; }

 private:
  std::stop_token stop_;
  std::chrono::steady_clock::time_point end_;
};

}  // namespace repo_daemon
