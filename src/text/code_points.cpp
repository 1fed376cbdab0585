// SPDX-License-Identifier: MIT
#include "text/code_points.hpp"

#include <algorithm>
#include <cstdint>

namespace tool_binding::text {
namespace {

/// The well-formed sequences (the Unicode Standard, table 3-7, with surrogates let in) by their first byte. The bounds
/// of the second byte keep out overlong forms and what lies beyond U+10FFFF.
struct Lead {
  std::uint8_t first;
  std::uint8_t last;
  std::uint8_t size;
  std::uint8_t second_from;
  std::uint8_t second_to;
};

constexpr Lead leads[] = {
    {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF}, {0xE1, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

constexpr std::size_t longest_sequence = 4;

constexpr std::uint8_t byte_at(std::string_view text, std::size_t offset) noexcept {
  return static_cast<std::uint8_t>(text[offset]);
}

constexpr CodePoint stray(std::uint8_t byte) noexcept { return {0xDC00U + byte, 1}; }

constexpr bool is_continuation(std::uint8_t byte) noexcept { return (byte & 0xC0U) == 0x80; }

bool is_well_formed(std::string_view sequence, const Lead& lead) noexcept {
  const std::uint8_t second = byte_at(sequence, 1);
  return second >= lead.second_from && second <= lead.second_to &&
         std::all_of(sequence.begin() + 2, sequence.end(),
                     [](char byte) { return is_continuation(static_cast<std::uint8_t>(byte)); });
}

char32_t value_of(std::string_view sequence) noexcept {
  char32_t value = byte_at(sequence, 0) & (0x7FU >> sequence.size());
  for (std::size_t offset = 1; offset < sequence.size(); ++offset) {
    value = value << 6U | (byte_at(sequence, offset) & 0x3FU);
  }
  return value;
}

char continuation(char32_t code_point, unsigned shift) noexcept {
  return static_cast<char>(0x80U | (code_point >> shift & 0x3FU));
}

}  // namespace

CodePoint next_beyond_ascii(std::string_view rest) noexcept {
  const std::uint8_t first = byte_at(rest, 0);
  const auto* const lead =
      std::find_if(std::begin(leads), std::end(leads), [&](const Lead& row) { return first <= row.last; });
  if (lead == std::end(leads) || first < lead->first || rest.size() < lead->size) {
    return stray(first);
  }
  const std::string_view sequence = rest.substr(0, lead->size);
  return is_well_formed(sequence, *lead) ? CodePoint{value_of(sequence), sequence.size()} : stray(first);
}

// No sequence holds the first byte of another, so reading from the front meets every well-formed sequence where it
// begins, whatever precedes it.
CodePoint last_beyond_ascii(std::string_view text) noexcept {
  for (std::size_t size = 2; size <= std::min(longest_sequence, text.size()); ++size) {
    const CodePoint first = next_code_point(text.substr(text.size() - size));
    if (first.size == size) {
      return first;
    }
  }
  return stray(byte_at(text, text.size() - 1));
}

void append_code_point(std::string& out, char32_t code_point) {
  TOOL_BINDING_ASSERT(code_point <= 0x10FFFF);
  if (code_point < 0x80) {
    out += static_cast<char>(code_point);
  } else if (code_point < 0x800) {
    out += static_cast<char>(0xC0U | code_point >> 6U);
    out += continuation(code_point, 0);
  } else if (code_point < 0x10000) {
    out += static_cast<char>(0xE0U | code_point >> 12U);
    out += continuation(code_point, 6);
    out += continuation(code_point, 0);
  } else {
    out += static_cast<char>(0xF0U | code_point >> 18U);
    out += continuation(code_point, 12);
    out += continuation(code_point, 6);
    out += continuation(code_point, 0);
  }
}

std::u32string decode(std::string_view text) {
  std::u32string code_points;
  code_points.reserve(text.size());
  while (!text.empty()) {
    const CodePoint next = next_code_point(text);
    code_points += next.value;
    text.remove_prefix(next.size);
  }
  return code_points;
}

std::size_t count_code_points(std::string_view text) noexcept {
  std::size_t count = 0;
  while (!text.empty()) {
    text.remove_prefix(next_code_point(text).size);
    ++count;
  }
  return count;
}

}  // namespace tool_binding::text
