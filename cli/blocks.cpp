// SPDX-License-Identifier: MIT
#include "blocks.hpp"

#include <algorithm>

namespace tool_binding::cli {

namespace {

/// As much as is read at once, and the room that a block keeps from one filling to the next.
constexpr std::size_t read_size = std::size_t{128} * 1024;
constexpr std::size_t kept_capacity = std::size_t{4} * 1024 * 1024;

/// The line feeds of a text: a search for each, since a byte at a time takes ten times as long.
std::size_t lines_of(std::string_view text) {
  std::size_t count = 0;
  while (const void* const feed = std::memchr(text.data(), '\n', text.size())) {
    ++count;
    text.remove_prefix(static_cast<std::size_t>(static_cast<const char*>(feed) - text.data()) + 1);
  }
  return count;
}

}  // namespace

void Block::begin(std::size_t file, std::size_t first_line) {
  if (capacity_ > kept_capacity) {
    bytes_.reset();
    capacity_ = 0;
  }
  size_ = 0;
  file_ = file;
  first_line_ = first_line;
}

void Block::append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::span<char> free = room();
    const std::size_t count = std::min(free.size(), bytes.size());
    std::memcpy(free.data(), bytes.data(), count);
    size_ += count;
    bytes.remove_prefix(count);
  }
}

/// At least `read_size`; twice as much as before where less is left, so that a long line is moved a few times only.
std::span<char> Block::room() {
  if (capacity_ - size_ < read_size) {
    const std::size_t larger_capacity = 2 * size_ + read_size;
    auto larger = std::make_unique_for_overwrite<char[]>(larger_capacity);
    if (size_ != 0) {
      std::memcpy(larger.get(), bytes_.get(), size_);
    }
    bytes_ = std::move(larger);
    capacity_ = larger_capacity;
  }
  return {bytes_.get() + size_, capacity_ - size_};
}

bool InputBlocks::next(Block& block) {
  while (file_ < paths_.size()) {
    if (input_ == nullptr) {
      input_ = std::make_unique<Input>(paths_[file_]);
    }
    block.begin(file_, next_line_);
    const bool has_lines = fill(block);
    if (input_ == nullptr) {
      ++file_;
      next_line_ = 1;
    }
    if (has_lines) {
      return true;
    }
  }
  return false;
}

/// Reads until a line is whole, or the file ends and is closed. Of a line that is too long the rest is forgotten.
bool InputBlocks::fill(Block& block) {
  block.append(rest_);
  rest_.clear();
  while (true) {
    const std::size_t begin = block.size_;
    const std::size_t count = input_->read(block.room().first(read_size), stop_.get());
    if (count == 0) {
      input_.reset();  // a terminal would be asked again
      return block.size_ != 0;
    }
    block.size_ += count;
    const std::size_t feed = std::string_view(block.bytes_.get() + begin, count).rfind('\n');
    if (feed != std::string_view::npos) {
      cut(block, begin + feed + 1);
      return true;
    }
    block.size_ = std::min(block.size_, too_long);
  }
}

/// Ends the block there; what follows begins the next.
void InputBlocks::cut(Block& block, std::size_t end) {
  rest_.assign(block.bytes_.get() + end, block.size_ - end);
  block.size_ = end;
  next_line_ += lines_of({block.bytes_.get(), end});
}

void InputBlocks::stop() noexcept {
  if (stop_ != nullptr) {
    stop_->raise();
  }
}

}  // namespace tool_binding::cli
