// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "tool_binding/detail/assert.hpp"

namespace tool_binding::json {

/// A text cut into its tokens: brackets, braces, commas, colons, and whatever is between them.
///
/// simdjson's first stage finds where tokens begin, and makes sure of what would take a scan of its own: well-formed
/// UTF-8, no control character in a text, every text closed. What the tokens are and whether they are in a valid order
/// is for the grammar to say.
class Tokens {
 public:
  Tokens();
  Tokens(Tokens&&) noexcept;
  Tokens& operator=(Tokens&&) noexcept;
  ~Tokens();

  /// Copies `text` and cuts it. Throws ParseError.
  void cut(std::string_view text);

  [[nodiscard]] std::size_t count() const noexcept { return count_; }

  /// Whether there is a backslash anywhere; most texts have none, and none of their tokens needs to be searched.
  [[nodiscard]] bool hold_backslash() const noexcept { return hold_backslash_; }

  /// The byte at which a token begins; that of the token `count()` is the text's end.
  [[nodiscard]] std::size_t begin_of(std::size_t token) const noexcept { return begins_[token]; }

  /// The first byte of a token, zero for the token `count()`.
  [[nodiscard]] char first_of(std::size_t token) const noexcept { return bytes_[begins_[token]]; }

  /// The whole of a token, without the white space behind it. Precondition: `token` is below `count()`.
  [[nodiscard]] std::string_view whole(std::size_t token) const noexcept {
    TOOL_BINDING_ASSERT(token < count_);
    const std::size_t begin = begins_[token];
    std::size_t end = begins_[token + 1];
    while (is_white(bytes_[end - 1])) {
      --end;
    }
    return {bytes_.get() + begin, end - begin};
  }

  /// Throws the ParseError of a fault at the byte `offset` of the text.
  [[noreturn]] void fail(std::size_t offset, std::string_view words) const;

  /// The line of the byte `offset`, counted from 1.
  [[nodiscard]] std::size_t line_of(std::size_t offset) const noexcept;

 private:
  struct Indexer;

  static bool is_white(char byte) noexcept { return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t'; }
  [[nodiscard]] std::string_view text() const noexcept { return {bytes_.get(), size_}; }
  void make_room(std::size_t size);
  [[noreturn]] void refuse() const;

  std::unique_ptr<Indexer> indexer_;
  std::unique_ptr<char[]> bytes_;
  std::size_t room_ = 0;
  std::size_t size_ = 0;
  std::size_t count_ = 0;
  bool hold_backslash_ = false;
  const std::uint32_t* begins_ = nullptr;
};

}  // namespace tool_binding::json
