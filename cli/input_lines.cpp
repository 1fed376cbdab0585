// SPDX-License-Identifier: MIT
#include "input_lines.hpp"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tool_binding::cli {

namespace {

constexpr std::size_t first_capacity = std::size_t{256} * 1024;

}  // namespace

InputLines::InputLines(Input input)
    : input_(std::move(input)),
      capacity_(first_capacity),
      buffer_(std::make_unique_for_overwrite<char[]>(first_capacity)) {}

bool InputLines::has_whole_line() {
  const char* const from = buffer_.get() + searched_;
  const void* const found = std::memchr(from, '\n', filled_ - searched_);
  searched_ = found == nullptr ? filled_ : static_cast<std::size_t>(static_cast<const char*>(found) - buffer_.get());
  return found != nullptr;
}

std::optional<Line> InputLines::next() {
  while (!has_whole_line()) {
    if (!read_more()) {
      return begin_ == filled_ ? std::nullopt : std::optional(take(filled_, filled_));
    }
  }
  return take(searched_, searched_ + 1);
}

bool InputLines::read_more() {
  if (ended_) {
    return false;
  }
  make_room();
  const std::size_t count = input_.read({buffer_.get() + filled_, capacity_ - filled_});
  filled_ += count;
  ended_ = count == 0;
  return !ended_;
}

/// Moves the line that has begun to the front, and into a larger buffer when it takes more than half of this one: so
/// that a long line is moved a few times only, however small the pieces in which it comes. Of a line that is too long
/// the rest is forgotten.
void InputLines::make_room() {
  const std::size_t kept = std::min(filled_ - begin_, too_long);
  if (kept > capacity_ / 2) {
    auto larger = std::make_unique_for_overwrite<char[]>(2 * capacity_);
    std::memcpy(larger.get(), buffer_.get() + begin_, kept);
    buffer_ = std::move(larger);
    capacity_ *= 2;
  } else if (begin_ != 0) {
    std::memmove(buffer_.get(), buffer_.get() + begin_, kept);
  }
  searched_ = kept;
  filled_ = kept;
  begin_ = 0;
}

Line InputLines::take(std::size_t end, std::size_t next_begin) {
  const std::string_view text(buffer_.get() + begin_, end - begin_);
  begin_ = next_begin;
  searched_ = next_begin;
  return {++number_, text};
}

}  // namespace tool_binding::cli
