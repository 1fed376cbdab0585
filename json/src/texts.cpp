// SPDX-License-Identifier: MIT
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "scalars.hpp"
#include "tool_binding/detail/code_points.hpp"

namespace tool_binding::json {

namespace {

constexpr std::size_t code_unit_digits = 4;

struct Escape {
  char letter;
  char meaning;
};

constexpr std::array<Escape, 8> escapes{
    {{'"', '"'}, {'\\', '\\'}, {'/', '/'}, {'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};

/// The UTF-16 code unit of a "\u" escape that `text` begins with, none when it begins with no such escape.
std::optional<std::uint32_t> code_unit(std::string_view text) noexcept {
  if (!text.starts_with("\\u") || text.size() < 2 + code_unit_digits) {
    return std::nullopt;
  }
  std::uint32_t unit = 0;
  const char* const end = text.data() + 2 + code_unit_digits;
  const auto result = std::from_chars(text.data() + 2, end, unit, 16);
  return result.ptr == end ? std::optional(unit) : std::nullopt;
}

bool is_first_half(std::uint32_t unit) noexcept { return unit >= 0xD800 && unit < 0xDC00; }
bool is_second_half(std::uint32_t unit) noexcept { return unit >= 0xDC00 && unit < 0xE000; }

/// Replaces the escapes of one text.
class Unescaper {
 public:
  Unescaper(const Tokens& tokens, std::size_t begin, std::string_view content, std::string& out)
      : tokens_(tokens), begin_(begin), content_(content), out_(out) {}

  void run() {
    out_.clear();
    for (;;) {
      const std::size_t backslash = content_.find('\\', offset_);
      out_.append(content_.substr(offset_, backslash - offset_));
      if (backslash == std::string_view::npos) {
        return;
      }
      offset_ = backslash;
      take_escape();
    }
  }

 private:
  void take_escape() {
    const char letter = content_[offset_ + 1];
    if (letter == 'u') {
      return take_code_point();
    }
    for (const Escape& escape : escapes) {
      if (escape.letter == letter) {
        out_ += escape.meaning;
        offset_ += 2;
        return;
      }
    }
    tokens_.fail(begin_ + offset_, "this is not a valid escape sequence");
  }

  void take_code_point() {
    const std::uint32_t unit = take_code_unit();
    if (is_first_half(unit)) {
      const std::optional<std::uint32_t> other = code_unit(content_.substr(offset_));
      if (other && is_second_half(*other)) {
        offset_ += 2 + code_unit_digits;
        return text::append_code_point(out_, 0x10000 + ((unit - 0xD800) << 10U) + (*other - 0xDC00));
      }
    }
    text::append_code_point(out_, unit);
  }

  std::uint32_t take_code_unit() {
    const std::optional<std::uint32_t> unit = code_unit(content_.substr(offset_));
    if (!unit) {
      tokens_.fail(begin_ + offset_, "\\u must be followed by four hexadecimal digits");
    }
    offset_ += 2 + code_unit_digits;
    return *unit;
  }

  const Tokens& tokens_;
  std::size_t begin_;
  std::string_view content_;
  std::string& out_;
  std::size_t offset_ = 0;
};

}  // namespace

std::string_view replace_escapes(const Tokens& tokens, std::size_t begin, std::string_view content,
                                 std::string& unescaped) {
  if (content.find('\\') == std::string_view::npos) {
    return content;
  }
  Unescaper(tokens, begin, content, unescaped).run();
  return unescaped;
}

}  // namespace tool_binding::json
