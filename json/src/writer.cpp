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

bool are_plain(Block block) noexcept {
  const auto found = std::bit_cast<Halves>((block < ' ') | (block == '"') | (block == '\\'));
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

constexpr std::string_view comma = ", ";
constexpr std::string_view colon = ": ";

/// What may surround a text: quotes, the comma before it and the colon behind it.
constexpr std::size_t around_text = 2 + comma.size() + colon.size();

/// As many digits as an integer of 64 bits has, and its sign.
constexpr std::size_t longest_integer = 20;

constexpr std::size_t first_room = 512;

}  // namespace

void Writer::clear() noexcept {
  end_ = bytes_.data();
  follows_ = false;
  open_.clear();
}

void Writer::write(const Value& value) {
  if (value.is_list() || value.is_mapping()) {
    write_container(value);
  } else {
    append_scalar(value);
  }
}

void Writer::write_text(std::string_view text) { append_long(text); }

void Writer::write_name(const Text& name) {
  append_text(name);
  put(colon);
  follows_ = false;
}

void Writer::open_list() { open('['); }
void Writer::close_list() { close(']'); }
void Writer::open_object() { open('{'); }
void Writer::close_object() { close('}'); }

void Writer::write_again(std::size_t begin, std::size_t count) {
  TOOL_BINDING_ASSERT(begin <= text().size() && count <= text().size() - begin);
  if (count != 0) {
    make_room(comma.size() + count);
    separate();
    put({bytes_.data() + begin, count});
  }
}

void Writer::end_line() {
  append("\n");
  follows_ = false;
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
      append_scalar(item);
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

void Writer::append_scalar(const Value& value) {
  switch (value.kind()) {
    case Kind::text:
      return append_text(value.shared_text());
    case Kind::integer:
      return append_integer(value);
    case Kind::floating:
      return append_floating(value);
    case Kind::boolean:
      return value.boolean() ? append_word("true") : append_word("false");
    default:
      return append_word("null");
  }
}

void Writer::append_integer(const Value& value) {
  if (const std::optional<std::int64_t> small = value.to_int64()) {
    make_room(comma.size() + longest_integer);
    separate();
    end_ = std::to_chars(end_, limit_, *small).ptr;
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
    make_room(comma.size() + detail::longest_floating_form);
    separate();
    end_ = detail::write_floating_form(end_, number);
  }
}

/// Leaves room for a colon.
void Writer::append_text(const Text& text) {
  const detail::Cell& cell = detail::cell_of(text);
  if (cell.holds_node() || room() < sizeof cell + around_text) {
    return append_long(text);
  }
  const std::size_t size = text.size();
  separate();
  if (!copy_short(end_ + 1, cell, size)) {
    return append_escaping(text);
  }
  *end_ = '"';
  end_ += size + 1;
  *end_++ = '"';
}

/// The same for a text that is long, or for which there was no room.
void Writer::append_long(std::string_view text) {
  make_room(text.size() + sizeof(detail::Cell) + around_text);
  if (text.size() <= detail::inline_text_size) {
    return append_text(text);
  }
  separate();
  if (!copy_long(end_ + 1, text)) {
    return append_escaping(text);
  }
  *end_ = '"';
  end_ += text.size() + 1;
  *end_++ = '"';
}

void Writer::append_escaping(std::string_view text) {
  append('"' + escaped(text) + '"');
  make_room(colon.size());
}

inline void Writer::append_word(std::string_view word) {
  make_room(comma.size() + word.size());
  separate();
  put(word);
}

void Writer::open(char opener) {
  append_word({&opener, 1});
  follows_ = false;
}

void Writer::close(char closer) {
  append({&closer, 1});
  follows_ = true;
}

void Writer::append(std::string_view piece) {
  make_room(piece.size());
  put(piece);
}

/// Puts a comma where one belongs before what comes next, and asks for one behind it.
inline void Writer::separate() noexcept {
  if (follows_) {
    put(comma);
  }
  follows_ = true;
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
  const std::size_t size = text().size();
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
