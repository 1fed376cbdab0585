// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "text/code_points.hpp"
#include "text/unicode.hpp"
#include "values/forms.hpp"

namespace tool_binding {
namespace {

struct Escape {
  char32_t code_point;
  std::string_view written;
};

constexpr Escape escapes[] = {{'\\', "\\\\"}, {'\t', "\\t"}, {'\n', "\\n"}, {'\r', "\\r"}};

/// The hexadecimal escapes, by the first code point that is too large for them.
struct NumericEscape {
  char32_t below;
  char letter;
  unsigned digits;
};

constexpr NumericEscape numeric_escapes[] = {{0x100, 'x', 2}, {0x10000, 'u', 4}, {0x110000, 'U', 8}};

void append_numeric_escape(TextBuilder& out, char32_t code_point) {
  const auto* const row = std::find_if(std::begin(numeric_escapes), std::end(numeric_escapes),
                                       [&](const NumericEscape& escape) { return code_point < escape.below; });
  out += '\\';
  out += row->letter;
  for (unsigned digit = row->digits; digit-- > 0;) {
    out += "0123456789abcdef"[code_point >> (4 * digit) & 0xFU];
  }
}

void append_escape(TextBuilder& out, char32_t code_point, char quote) {
  if (code_point == static_cast<unsigned char>(quote)) {
    out += '\\';
    out += quote;
    return;
  }
  const auto* const row = std::find_if(std::begin(escapes), std::end(escapes),
                                       [&](const Escape& escape) { return escape.code_point == code_point; });
  if (row != std::end(escapes)) {
    out += row->written;
    return;
  }
  append_numeric_escape(out, code_point);
}

bool stands_unchanged(char32_t code_point, char quote) noexcept {
  return text::is_printable(code_point) && code_point != U'\\' && code_point != static_cast<unsigned char>(quote);
}

/// How many bytes at the start of `text` are left unchanged in the quoted form.
std::size_t unchanged_size(std::string_view text, char quote) noexcept {
  std::size_t size = 0;
  while (size < text.size()) {
    const text::CodePoint next = text::next_code_point(text.substr(size));
    if (!stands_unchanged(next.value, quote)) {
      break;
    }
    size += next.size;
  }
  return size;
}

}  // namespace

void append_quoted_text(TextBuilder& out, std::string_view text) {
  const bool has_single = text.find('\'') != std::string_view::npos;
  const char quote = has_single && text.find('"') == std::string_view::npos ? '"' : '\'';
  out += quote;
  for (;;) {
    const std::size_t unchanged = unchanged_size(text, quote);
    out += text.substr(0, unchanged);
    text.remove_prefix(unchanged);
    if (text.empty()) {
      break;
    }
    const text::CodePoint next = text::next_code_point(text);
    append_escape(out, next.value, quote);
    text.remove_prefix(next.size);
  }
  out += quote;
}

}  // namespace tool_binding
