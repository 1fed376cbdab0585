// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tool_binding::server::detail {

/// The lines of a file descriptor, each as soon as it is there. Of a line with more than `most_bytes` nothing is kept.
class InputLines {
 public:
  enum class Kind { whole, too_long, none };

  InputLines(int descriptor, std::size_t most_bytes) noexcept : descriptor_(descriptor), most_bytes_(most_bytes) {}

  /// Waits for the next line. What follows the last line feed is a line unless it is empty.
  Kind next();

  /// The line, where it is whole, without its line feed; until the next one.
  [[nodiscard]] std::string_view line() const noexcept { return line_; }

 private:
  [[nodiscard]] bool read_more();
  Kind found(std::size_t end);

  const int descriptor_;
  const std::size_t most_bytes_;
  std::string bytes_;
  std::size_t begin_ = 0;     ///< of what was not handed out yet
  std::size_t searched_ = 0;  ///< up to here there is no line feed
  std::size_t end_ = 0;       ///< of what was read
  bool passes_over_ = false;  ///< whether it is within a line that is too long
  std::string_view line_;
};

}  // namespace tool_binding::server::detail
