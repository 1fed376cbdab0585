// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "tool_binding/text.hpp"

namespace tool_binding {

/// A text that is being made piece by piece. It is kept on the stack as long as it is no longer than most messages are,
/// so that what is made of it is allocated once, at its size: with a growing string, words cost a refusal twice as
/// much.
class TextBuilder {
 public:
  TextBuilder() noexcept = default;
  TextBuilder(const TextBuilder&) = delete;
  TextBuilder& operator=(const TextBuilder&) = delete;

  TextBuilder& append(std::string_view piece) {
    make_room(piece.size());
    std::memcpy(end_, piece.data(), piece.size());
    end_ += piece.size();
    return *this;
  }
  /// A text held in its cell is copied with all of the cell, which takes no loop over its bytes.
  template <std::same_as<Text> ExactlyText>
  TextBuilder& append(const ExactlyText& piece) {
    const detail::Cell& cell = detail::cell_of(piece);
    if (cell.holds_node()) {
      return append(piece.view());
    }
    make_room(sizeof cell);
    std::memcpy(end_, piece.view().data(), sizeof cell);
    end_ += piece.size();
    return *this;
  }
  /// The first `size` bytes of a block, which is copied whole for the same reason.
  template <std::size_t whole>
  TextBuilder& append(const std::array<char, whole>& block, std::size_t size) {
    make_room(whole);
    std::memcpy(end_, block.data(), whole);
    end_ += size;
    return *this;
  }
  /// What `write` writes from where it is told on: at most `most` bytes, of which it returns the end.
  template <std::invocable<char*> Write>
  TextBuilder& append_written(std::size_t most, const Write& write) {
    make_room(most);
    end_ = write(end_);
    return *this;
  }
  TextBuilder& operator+=(std::string_view piece) { return append(piece); }
  TextBuilder& operator+=(char byte) {
    make_room(1);
    *end_++ = byte;
    return *this;
  }

  [[nodiscard]] bool empty() const noexcept { return end_ == begin_; }
  /// What was appended, until more is.
  [[nodiscard]] std::string_view view() const noexcept { return {begin_, static_cast<std::size_t>(end_ - begin_)}; }

 private:
  void make_room(std::size_t more) {
    if (static_cast<std::size_t>(limit_ - end_) < more) {
      grow(more);
    }
  }

  [[gnu::noinline]] void grow(std::size_t more) {
    const std::string_view before = view();
    const std::size_t room = 2 * (before.size() + more);
    auto roomier = std::make_unique<char[]>(room);
    end_ = std::copy(before.begin(), before.end(), roomier.get());
    elsewhere_ = std::move(roomier);
    begin_ = elsewhere_.get();
    limit_ = begin_ + room;
  }

  std::array<char, 512> here_;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled as far as it is used
  std::unique_ptr<char[]> elsewhere_;
  char* begin_ = here_.data();
  char* end_ = begin_;
  char* limit_ = begin_ + here_.size();
};

}  // namespace tool_binding
