// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "input.hpp"

namespace tool_binding::cli {

/// The length, in bytes, from which a line is too long to be read.
inline constexpr std::size_t too_long = std::size_t{256} * 1024 * 1024;

/// One line of an input.
struct Line {
  std::size_t number;     ///< counted from 1 in each file
  std::string_view text;  ///< without its line feed; of one that is too long the beginning, of that length at least
};

/// Whole lines of one file that came together.
class Block {
 public:
  /// Calls `see` with each line in order. Its text lives as long as this block is not filled again.
  template <class See>
  void each_line(const See& see) const {
    std::size_t number = first_line_;
    for (std::size_t begin = 0; begin < size_; ++number) {
      const char* const from = bytes_.get() + begin;
      const void* const feed = std::memchr(from, '\n', size_ - begin);
      const std::size_t length =
          feed == nullptr ? size_ - begin : static_cast<std::size_t>(static_cast<const char*>(feed) - from);
      see(Line{number, {from, length}});
      begin += length + 1;
    }
  }

  /// The file, counted from 0 in the order in which they were given, and the bytes that were read for this block.
  [[nodiscard]] std::size_t file() const noexcept { return file_; }
  [[nodiscard]] std::size_t size() const noexcept { return size_; }

 private:
  friend class InputBlocks;

  void begin(std::size_t file, std::size_t first_line);
  void append(std::string_view bytes);
  [[nodiscard]] std::span<char> room();

  std::unique_ptr<char[]> bytes_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
  std::size_t file_ = 0;
  std::size_t first_line_ = 1;
};

/// The lines of files, one after another, in blocks of whole lines: what is there is a block, and more is waited for
/// only while no line is whole.
///
/// A block takes at most four times its longest line, and at most twice the length that is too long, even for a line
/// that never ends: nothing grows with the number of lines.
class InputBlocks {
 public:
  explicit InputBlocks(std::vector<std::string> paths) : paths_(std::move(paths)) {}

  /// Fills `block` with the next lines; false at the end of the last file. What follows a file's last line feed is a
  /// line unless it is empty. Throws std::system_error.
  [[nodiscard]] bool next(Block& block);

  /// Lets `stop` end a wait for input, in this thread or another. To be called before the first `next`.
  void make_stoppable() { stop_ = std::make_unique<StopSignal>(); }
  void stop() noexcept;

 private:
  [[nodiscard]] bool fill(Block& block);
  void cut(Block& block, std::size_t end);

  std::vector<std::string> paths_;
  std::size_t file_ = 0;
  std::unique_ptr<Input> input_;
  std::unique_ptr<StopSignal> stop_;
  std::string rest_;           ///< the beginning of a line whose end is still to be read
  std::size_t next_line_ = 1;  ///< the number of the line that the next block begins with
};

}  // namespace tool_binding::cli
