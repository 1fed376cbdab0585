// SPDX-License-Identifier: MIT
#include "tokens.hpp"

#include <simdjson.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "tool_binding/detail/code_points.hpp"
#include "tool_binding/json/parse_error.hpp"

namespace tool_binding::json {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
constexpr std::size_t smallest_room = 4096;

struct TextFault {
  std::size_t offset;
  std::string_view words;
};

/// The first control character within a text, or the opening quote of a text that is never closed. A backslash takes
/// the byte behind it along wherever it is, as it does for simdjson.
TextFault first_text_fault(std::string_view bytes) noexcept {
  std::size_t opened = std::string_view::npos;
  for (std::size_t offset = 0; offset < bytes.size(); ++offset) {
    const char byte = bytes[offset];
    if (opened != std::string_view::npos && static_cast<unsigned char>(byte) < 0x20) {
      return {offset, "a control character in a string must be escaped"};
    }
    if (byte == '"') {
      opened = opened == std::string_view::npos ? offset : std::string_view::npos;
    } else if (byte == '\\') {
      ++offset;
    }
  }
  return {opened, "the string that begins here is not closed"};
}

/// The offset of the first byte that is not part of well-formed UTF-8, npos when there is none.
std::size_t first_ill_formed(std::string_view bytes) noexcept {
  for (std::size_t offset = 0; offset < bytes.size();) {
    const text::CodePoint next = text::next_code_point(bytes.substr(offset));
    if (next.is_surrogate()) {
      return offset;
    }
    offset += next.size;
  }
  return std::string_view::npos;
}

}  // namespace

struct Tokens::Indexer {
  simdjson::dom::parser parser;
};

Tokens::Tokens() : indexer_(std::make_unique<Indexer>()) {}
Tokens::Tokens(Tokens&&) noexcept = default;
Tokens& Tokens::operator=(Tokens&&) noexcept = default;
Tokens::~Tokens() = default;

void Tokens::cut(std::string_view text) {
  size_ = 0;
  if (text.size() > simdjson::SIMDJSON_MAXSIZE_BYTES) {
    fail(0, "a text of 4 GiB or more cannot be read");
  }
  make_room(text.size());
  std::copy(text.begin(), text.end(), bytes_.get());
  std::memset(bytes_.get() + text.size(), 0, simdjson::SIMDJSON_PADDING);
  size_ = text.size();
  if (text.starts_with(byte_order_mark)) {
    fail(0, "the text begins with a byte order mark");
  }
  simdjson::internal::dom_parser_implementation& found = *indexer_->parser.implementation;
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(bytes_.get());
  if (found.stage1(bytes, size_, simdjson::stage1_mode::regular) != simdjson::SUCCESS) {
    refuse();
  }
  hold_backslash_ = text.find('\\') != std::string_view::npos;
  count_ = found.n_structural_indexes;
  begins_ = found.structural_indexes.get();
}

void Tokens::make_room(std::size_t size) {
  if (room_ != 0 && size <= room_) {
    return;
  }
  const std::size_t room = std::clamp(size + size / 2, smallest_room, simdjson::SIMDJSON_MAXSIZE_BYTES);
  room_ = 0;
  bytes_.reset(new char[room + simdjson::SIMDJSON_PADDING]);
  // The depth is that of simdjson's second stage, which is never run.
  if (indexer_->parser.allocate(room, 1) != simdjson::SUCCESS) {
    throw std::bad_alloc();
  }
  room_ = room;
}

void Tokens::refuse() const {
  const std::size_t ill_formed = first_ill_formed(text());
  const TextFault fault = first_text_fault(text());
  if (ill_formed < fault.offset) {
    fail(ill_formed, "this byte is not valid UTF-8");
  }
  if (fault.offset < size_) {
    fail(fault.offset, fault.words);
  }
  fail(size_, "a value is missing");
}

void Tokens::fail(std::size_t offset, std::string_view words) const {
  const std::size_t line_end = text().substr(0, offset).rfind('\n');
  const std::size_t line_begin = line_end == std::string_view::npos ? 0 : line_end + 1;
  throw ParseError(line_of(offset), offset - line_begin + 1, words);
}

std::size_t Tokens::line_of(std::size_t offset) const noexcept {
  return 1 + static_cast<std::size_t>(std::count(bytes_.get(), bytes_.get() + offset, '\n'));
}

}  // namespace tool_binding::json
