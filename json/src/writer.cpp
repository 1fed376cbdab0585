// SPDX-License-Identifier: MIT
#include "tool_binding/json/writer.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/code_points.hpp"
#include "tool_binding/detail/floating_form.hpp"

namespace tool_binding::json {

namespace {

/// Whether a byte is written to a JSON text as it is: printable ASCII but for the quote and the backslash, and U+007F.
constexpr std::array<bool, 256> made_plain_bytes() {
  std::array<bool, 256> plain{};
  for (std::size_t byte = 0x20; byte < 0x80; ++byte) {
    plain[byte] = byte != '"' && byte != '\\';
  }
  return plain;
}
constexpr std::array<bool, 256> plain_bytes = made_plain_bytes();

constexpr std::array<std::pair<char, std::string_view>, 7> short_escapes{
    {{'"', "\\\""}, {'\\', "\\\\"}, {'\b', "\\b"}, {'\f', "\\f"}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}}};

/// Sixteen bytes that are looked at together. As signed numbers, the bytes beyond ASCII are below zero.
using Block [[gnu::vector_size(16)]] = signed char;
using Halves [[gnu::vector_size(16)]] = std::uint64_t;

/// The XOR swaps the quote with the blank, so that one comparison finds quotes and what is below the blank.
bool are_plain(Block block) noexcept {
  const auto found = std::bit_cast<Halves>(~((block ^ ('"' ^ ' ')) > ' ') | (block == '\\'));
  return (found[0] | found[1]) == 0;
}

Block load(const char* bytes) noexcept {
  Block block;
  std::memcpy(&block, bytes, sizeof block);
  return block;
}

/// Zeros, then bytes that are plain whatever they are joined with, but for what is beyond ASCII.
constexpr std::array<char, 2 * sizeof(Block)> made_filling() {
  std::array<char, 2 * sizeof(Block)> bytes{};
  std::fill(bytes.begin() + sizeof(Block), bytes.end(), '\x7f');
  return bytes;
}
constexpr std::array<char, 2 * sizeof(Block)> filling = made_filling();

/// Copies all of a cell that holds a text of `size` bytes; returns whether those bytes are plain.
bool copy_short(char* out, const detail::Cell& cell, std::size_t size) noexcept {
  const auto block = std::bit_cast<Block>(Halves{cell.low(), cell.high()});
  std::memcpy(out, &block, sizeof block);
  return are_plain(block | load(filling.data() + sizeof block - size));
}

/// Copies a text of 16 bytes or more up to a block that is not plain; returns whether there is none. The last block may
/// begin within the one before it.
bool copy_long(char* out, std::string_view text) noexcept {
  const std::size_t last = text.size() - sizeof(Block);
  for (std::size_t offset = 0;; offset = std::min(offset + sizeof(Block), last)) {
    const Block block = load(text.data() + offset);
    std::memcpy(out + offset, &block, sizeof block);
    if (!are_plain(block)) {
      return false;
    }
    if (offset == last) {
      return true;
    }
  }
}

void append_code_unit(std::string& out, unsigned unit) {
  constexpr std::string_view digits = "0123456789abcdef";
  out += "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) {
    out += digits[(unit >> shift) & 0xFU];
  }
}

void append_escaped(std::string& out, char byte) {
  for (const auto& [meaning, escape] : short_escapes) {
    if (meaning == byte) {
      out += escape;
      return;
    }
  }
  append_code_unit(out, static_cast<unsigned char>(byte));
}

/// Appends what `bytes` begin with, a byte that is not plain, and returns how many bytes that was.
std::size_t append_first(std::string& out, std::string_view bytes) {
  const text::CodePoint first = text::next_code_point(bytes);
  if (text::is_ascii(bytes.front())) {
    append_escaped(out, bytes.front());
  } else if (first.is_surrogate()) {
    append_code_unit(out, first.value);
  } else {
    out.append(bytes.substr(0, first.size));
  }
  return first.size;
}

/// `text` with what a JSON text cannot hold escaped.
std::string escaped(std::string_view text) {
  std::string out;
  while (!text.empty()) {
    std::size_t plain = 0;
    while (plain < text.size() && plain_bytes[static_cast<unsigned char>(text[plain])]) {
      ++plain;
    }
    out.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (!text.empty()) {
      text.remove_prefix(append_first(out, text));
    }
  }
  return out;
}

/// A comma or a colon, and the blank behind it.
constexpr std::size_t mark_size = 2;

/// What surrounds a text: quotes, and the mark behind it.
constexpr std::size_t around_text = 2 + mark_size;

/// As many digits as an integer of 64 bits has, and its sign.
constexpr std::size_t longest_integer = 20;

constexpr std::size_t first_room = 512;

}  // namespace

std::string_view Writer::text() const noexcept {
  const auto size = static_cast<std::size_t>(end_ - bytes_.data());
  return {bytes_.data(), size - (has_comma_ ? mark_size : 0)};
}

void Writer::clear() noexcept {
  end_ = bytes_.data();
  has_comma_ = false;
  open_.clear();
}

void Writer::write(const Value& value) {
  if (value.is_text()) {
    return append_text(detail::cell_of(value), ',');
  }
  switch (value.kind()) {
    case Kind::integer:
      return append_integer(value);
    case Kind::floating:
      return append_floating(value);
    case Kind::boolean:
      return value.boolean() ? append_word("true") : append_word("false");
    case Kind::null:
      return append_word("null");
    default:
      return write_container(value);
  }
}

void Writer::write_text(std::string_view text) { append_long(text, ','); }

void Writer::write_name(const Text& name) { append_text(detail::cell_of(name), ':'); }

void Writer::open_list() { open('['); }
void Writer::close_list() { close(']'); }
void Writer::open_object() { open('{'); }
void Writer::close_object() { close('}'); }

void Writer::write_again(std::size_t begin, std::size_t count) {
  TOOL_BINDING_ASSERT(begin <= text().size() && count <= text().size() - begin);
  if (count != 0) {
    make_room(count + mark_size);
    put({bytes_.data() + begin, count});
    put_mark(',');
  }
}

void Writer::end_line() {
  take_comma_back();
  make_room(1);
  put("\n");
}

void Writer::write_container(const Value& value) {
  enter(value);
  while (!open_.empty()) {
    Open& container = open_.back();
    if (container.left == 0) {
      close(container.closer);
      open_.pop_back();
      continue;
    }
    --container.left;
    if (container.entry != nullptr) {
      write_name(container.entry->name);
    }
    const Value& item = container.entry != nullptr ? (container.entry++)->value : *container.item++;
    if (item.is_list() || item.is_mapping()) {
      enter(item);
    } else {
      write(item);
    }
  }
}

void Writer::enter(const Value& value) {
  if (value.is_list()) {
    open('[');
    open_.push_back({value.list().data(), nullptr, value.list().size(), ']'});
  } else {
    open('{');
    open_.push_back({nullptr, std::to_address(value.mapping().begin()), value.mapping().size(), '}'});
  }
}

void Writer::append_integer(const Value& value) {
  if (const std::optional<std::int64_t> small = value.to_int64()) {
    make_room(longest_integer + mark_size);
    end_ = std::to_chars(end_, limit_, *small).ptr;
    put_mark(',');
  } else {
    append_word(value.integer().to_string());
  }
}

void Writer::append_floating(const Value& value) {
  const double number = value.floating();
  if (std::isnan(number)) {
    append_word("NaN");
  } else if (std::isinf(number)) {
    append_word(number < 0 ? "-Infinity" : "Infinity");
  } else {
    make_room(detail::longest_floating_form + mark_size);
    end_ = detail::write_floating_form(end_, number);
    put_mark(',');
  }
}

/// Appends a text, and the colon of a name or the comma of a value.
void Writer::append_text(const detail::Cell& text, char mark) {
  if (text.holds_node() || room() < sizeof text + around_text) {
    return append_long(text.text(), mark);
  }
  const std::size_t size = text.text().size();
  if (!copy_short(end_ + 1, text, size)) {
    return append_escaping(text.text(), mark);
  }
  enclose(size, mark);
}

/// The same of a text that is long, or for which there was no room.
void Writer::append_long(std::string_view text, char mark) {
  make_room(text.size() + sizeof(detail::Cell) + around_text);
  if (text.size() <= detail::inline_text_size) {
    return append_text(detail::Cell(text), mark);
  }
  if (!copy_long(end_ + 1, text)) {
    return append_escaping(text, mark);
  }
  enclose(text.size(), mark);
}

void Writer::append_escaping(std::string_view text, char mark) {
  const std::string bytes = escaped(text);
  make_room(bytes.size() + around_text);
  std::copy(bytes.begin(), bytes.end(), end_ + 1);
  enclose(bytes.size(), mark);
}

/// Puts quotes around a text of `size` bytes that was copied behind room for the first one, and a mark behind it.
inline void Writer::enclose(std::size_t size, char mark) noexcept {
  char* const begin = end_;
  begin[0] = '"';
  begin[size + 1] = '"';
  end_ = begin + size + 2;
  put_mark(mark);
}

inline void Writer::append_word(std::string_view word) {
  make_room(word.size() + mark_size);
  put(word);
  put_mark(',');
}

void Writer::open(char opener) {
  make_room(1);
  put({&opener, 1});
  has_comma_ = false;
}

void Writer::close(char closer) {
  take_comma_back();
  append_word({&closer, 1});
}

/// Every value gets a comma, which is taken back where no other follows: nothing has to be asked before a name or
/// value.
inline void Writer::put_mark(char mark) noexcept {
  TOOL_BINDING_ASSERT(mark_size <= room());
  char* const begin = end_;
  begin[0] = mark;
  begin[1] = ' ';
  end_ = begin + mark_size;
  has_comma_ = mark == ',';
}

inline void Writer::take_comma_back() noexcept {
  end_ -= has_comma_ ? mark_size : 0;
  has_comma_ = false;
}

/// Precondition: there is room.
inline void Writer::put(std::string_view piece) noexcept {
  TOOL_BINDING_ASSERT(piece.size() <= room());
  end_ = std::copy(piece.begin(), piece.end(), end_);
}

inline std::size_t Writer::room() const noexcept { return static_cast<std::size_t>(limit_ - end_); }

inline void Writer::make_room(std::size_t count) {
  if (room() < count) {
    grow(count);
  }
}

void Writer::grow(std::size_t count) {
  const auto size = static_cast<std::size_t>(end_ - bytes_.data());
  bytes_.resize(std::max({first_room, 2 * bytes_.size(), size + count}));
  end_ = bytes_.data() + size;
  limit_ = bytes_.data() + bytes_.size();
}

std::string write(const Value& value) {
  Writer writer;
  writer.write(value);
  return std::string(writer.text());
}

}  // namespace tool_binding::json
