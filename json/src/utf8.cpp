// SPDX-License-Identifier: MIT
#include "utf8.hpp"

#include <array>

namespace tool_binding::json {

namespace {

/// The well-formed sequences of more than one byte, by their first byte (Unicode, table 3-7). Only the second byte has
/// bounds of its own.
struct SequenceRow {
  unsigned char first_low, first_high;
  unsigned char second_low, second_high;
  std::size_t size;
};

constexpr std::array<SequenceRow, 8> sequence_rows{{{0xC2, 0xDF, 0x80, 0xBF, 2},
                                                    {0xE0, 0xE0, 0xA0, 0xBF, 3},
                                                    {0xE1, 0xEC, 0x80, 0xBF, 3},
                                                    {0xED, 0xED, 0x80, 0x9F, 3},
                                                    {0xEE, 0xEF, 0x80, 0xBF, 3},
                                                    {0xF0, 0xF0, 0x90, 0xBF, 4},
                                                    {0xF1, 0xF3, 0x80, 0xBF, 4},
                                                    {0xF4, 0xF4, 0x80, 0x8F, 4}}};

unsigned char byte_at(std::string_view text, std::size_t offset) noexcept {
  return static_cast<unsigned char>(text[offset]);
}

bool continues(unsigned char byte) noexcept { return (byte & 0xC0U) == 0x80U; }

bool matches(const SequenceRow& row, std::string_view text) noexcept {
  if (text.size() < row.size || byte_at(text, 1) < row.second_low || byte_at(text, 1) > row.second_high) {
    return false;
  }
  for (std::size_t offset = 2; offset < row.size; ++offset) {
    if (!continues(byte_at(text, offset))) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::size_t sequence_size(std::string_view text) noexcept {
  const unsigned char first = byte_at(text, 0);
  if (first < 0x80) {
    return 1;
  }
  for (const SequenceRow& row : sequence_rows) {
    if (first >= row.first_low && first <= row.first_high) {
      return matches(row, text) ? row.size : 0;
    }
  }
  return 0;
}

bool begins_with_surrogate(std::string_view text) noexcept {
  return text.size() >= 3 && byte_at(text, 0) == 0xED && byte_at(text, 1) >= 0xA0 && byte_at(text, 1) <= 0xBF &&
         continues(byte_at(text, 2));
}

std::size_t first_ill_formed(std::string_view text) noexcept {
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t size = sequence_size(text.substr(offset));
    if (size == 0) {
      return offset;
    }
    offset += size;
  }
  return std::string_view::npos;
}

void append_code_point(std::string& out, std::uint32_t code_point) {
  const auto trail = [&](unsigned shift) { out += static_cast<char>(0x80U | ((code_point >> shift) & 0x3FU)); };
  if (code_point < 0x80) {
    out += static_cast<char>(code_point);
    return;
  }
  if (code_point < 0x800) {
    out += static_cast<char>(0xC0U | (code_point >> 6U));
  } else if (code_point < 0x10000) {
    out += static_cast<char>(0xE0U | (code_point >> 12U));
    trail(6);
  } else {
    out += static_cast<char>(0xF0U | (code_point >> 18U));
    trail(12);
    trail(6);
  }
  trail(0);
}

}  // namespace tool_binding::json
