// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/value.hpp"

/// Values to JSON text (RFC 8259) on one line, as in {"tool": "search", "arguments": {"limit": 5}}.
///
/// Text is written as UTF-8, escaped only where JSON requires it. What no UTF-8 can spell, a lone surrogate or a byte
/// that is not part of well-formed text, is written as the `\u` escape of its code point: the output is always
/// well-formed. Two such halves of a pair next to each other are read as the code point that they make: JSON spells
/// both alike. An integer has all its digits. A floating number has a fraction or an exponent (5.0, 1e+16), or is one
/// of the bare words NaN, Infinity and -Infinity, so that it is read as a floating number again.
namespace tool_binding::json {

/// Writes values one after another and keeps its buffer from one to the next. For one thread at a time; after
/// std::bad_alloc it is to be cleared.
///
/// A value is written as a whole, or piece by piece, the names and values of an object in turns:
/// `open_object(); write_name("tool"); write("search"); close_object();` gives {"tool": "search"}. Commas are put where
/// they belong.
class TOOL_BINDING_API Writer {
 public:
  Writer() = default;
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  /// What was written since the last `clear`, as long as nothing else is called.
  [[nodiscard]] std::string_view text() const noexcept TOOL_BINDING_LIFETIMEBOUND;
  void clear() noexcept;

  void write(const Value& value);
  void write_text(std::string_view text);

  void open_list();
  void close_list();
  void open_object();
  void write_name(const Text& name);
  void close_object();

  /// Writes again what `text()` holds from `begin` on: whole items of a list, or members of an object, with the
  /// commas between them. Precondition: `begin` is at most the size of `text()`, `count` at most what is left of it.
  void write_again(std::size_t begin, std::size_t count);

  /// Ends a line of which one value was written, so that the next value is the next line.
  void end_line();

 private:
  /// A list or mapping that is being written: its next item or entry, and how many are left.
  struct Open {
    const Value* item;
    const ArgumentMap::Entry* entry;
    std::size_t left;
    char closer;
  };

  void write_container(const Value& value);
  void enter(const Value& value);
  void append_integer(const Value& value);
  void append_floating(const Value& value);
  void append_text(const detail::Cell& text, char mark);
  void append_long(std::string_view text, char mark);
  void append_escaping(std::string_view text, char mark);
  void enclose(std::size_t size, char mark) noexcept;
  void append_word(std::string_view word);
  void open(char opener);
  void close(char closer);
  void put_mark(char mark) noexcept;
  void take_comma_back() noexcept;
  void put(std::string_view piece) noexcept;
  [[nodiscard]] std::size_t room() const noexcept;
  void make_room(std::size_t count);
  void grow(std::size_t count);

  std::string bytes_;  ///< all of it is room
  char* end_ = bytes_.data();
  char* limit_ = end_;
  bool has_comma_ = false;  ///< whether the last bytes are a comma that is taken back unless another value follows
  std::vector<Open> open_;
};

[[nodiscard]] TOOL_BINDING_API std::string write(const Value& value);

}  // namespace tool_binding::json
