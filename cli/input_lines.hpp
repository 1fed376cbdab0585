// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "input.hpp"

namespace tool_binding::cli {

/// The length, in bytes, from which a line is too long to be read.
inline constexpr std::size_t too_long = std::size_t{256} * 1024 * 1024;

/// One line of an input.
struct Line {
  std::size_t number;     ///< counted from 1
  std::string_view text;  ///< without its line feed; of one that is too long the beginning, of that length at least
};

/// The lines of an input, each as soon as it is there.
///
/// Holds one buffer, of at most four times the longest line, and of at most twice the length that is too long, even for
/// a line that never ends: nothing grows with the number of lines.
class InputLines {
 public:
  explicit InputLines(Input input);

  /// Whether `next` has a line at once, without waiting for more input.
  [[nodiscard]] bool has_whole_line();

  /// The next line, nothing at the end. What follows the last line feed is a line unless it is empty. The text lives
  /// until the next call. Throws std::system_error.
  [[nodiscard]] std::optional<Line> next();

 private:
  [[nodiscard]] bool read_more();
  void make_room();
  [[nodiscard]] Line take(std::size_t end, std::size_t next_begin);

  Input input_;
  std::size_t capacity_;
  std::unique_ptr<char[]> buffer_;
  std::size_t begin_ = 0;     ///< of the next line
  std::size_t searched_ = 0;  ///< no line feed stands between `begin_` and here
  std::size_t filled_ = 0;
  std::size_t number_ = 0;
  bool ended_ = false;  ///< a terminal would be asked again
};

}  // namespace tool_binding::cli
