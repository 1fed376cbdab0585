// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "scalars.hpp"
#include "tokens.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::json {

inline constexpr std::size_t deepest_level = 1000;

/// Walks the tokens of one text in the grammar of JSON (RFC 8259) and tells a builder what it meets:
/// `open(offset)`, `key(view, offset)`, `scalar(content, offset)`, `close_list()` and `close_mapping()`. An offset is
/// the byte in the text; the content is a Value or, for a text, a view that the builder must copy. Throws ParseError,
/// and may leave the builder with containers that were never closed.
template <class Builder>
class Grammar {
 public:
  Grammar(const Tokens& tokens, std::string& unescaped, Builder& builder)
      : tokens_(tokens), unescaped_(unescaped), builder_(builder) {
    closers_[0] = '\0';
  }

  void walk() {
    do {
      take_value();
    } while (another_follows());
    if (next_ != tokens_.count()) {
      fail("nothing but white space may follow the value");
    }
  }

 private:
  /// Takes a scalar or an empty container; of any other container everything up to its first such value.
  void take_value() {
    for (;;) {
      if (closers_[depth_] == '}') {
        take_key();
      }
      switch (tokens_.first_of(next_)) {
        case '{':
          open('}');
          break;
        case '[':
          open(']');
          break;
        default:
          return take_scalar();
      }
      if (tokens_.first_of(next_) == closers_[depth_]) {
        return close();
      }
    }
  }

  /// Whether another value follows in the same container or in one around it; closes those that end before it.
  bool another_follows() {
    while (depth_ != 0) {
      const char closer = closers_[depth_];
      const char found = tokens_.first_of(next_);
      if (found == ',') {
        ++next_;
        return true;
      }
      if (found != closer) {
        fail(closer == '}' ? "a comma or '}' is missing" : "a comma or ']' is missing");
      }
      close();
    }
    return false;
  }

  void open(char closer) {
    if (depth_ == deepest_level) {
      fail("the text is nested deeper than 1,000 levels");
    }
    closers_[++depth_] = closer;
    builder_.open(tokens_.begin_of(next_++));
  }

  void close() {
    ++next_;
    if (closers_[depth_--] == '}') {
      builder_.close_mapping();
    } else {
      builder_.close_list();
    }
  }

  void take_key() {
    if (tokens_.first_of(next_) != '"') {
      fail("a key in double quotes is missing");
    }
    const std::size_t offset = tokens_.begin_of(next_);
    builder_.key(read_text(tokens_, next_++, unescaped_), offset);
    if (tokens_.first_of(next_) != ':') {
      fail("a colon is missing");
    }
    ++next_;
  }

  void take_scalar() {
    if (next_ == tokens_.count()) {
      fail("a value is missing");
    }
    const std::size_t offset = tokens_.begin_of(next_);
    const char first = tokens_.first_of(next_);
    if (first == '"') {
      builder_.scalar(read_text(tokens_, next_, unescaped_), offset);
    } else if (first >= '0' && first <= '9') {
      builder_.scalar(read_number(tokens_, next_), offset);
    } else {
      builder_.scalar(read_word_or_negative(tokens_, next_), offset);
    }
    ++next_;
  }

  [[noreturn]] void fail(const char* words) const { tokens_.fail(tokens_.begin_of(next_), words); }

  const Tokens& tokens_;
  std::string& unescaped_;
  Builder& builder_;
  std::size_t next_ = 0;
  std::size_t depth_ = 0;
  std::array<char, deepest_level + 1> closers_;  ///< of the open containers, behind a zero for none
};

}  // namespace tool_binding::json
