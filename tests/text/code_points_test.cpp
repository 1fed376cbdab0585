// SPDX-License-Identifier: MIT
#include "text/code_points.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tool_binding::text {
namespace {

/// The values next to which a byte changes its meaning, for texts of which not every one is read.
constexpr unsigned char boundaries[] = {0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC1, 0xC2, 0xDF,
                                        0xE0, 0xE1, 0xED, 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF7, 0xF8, 0xFF};

/// The reading of a text stated by values: the bits that a first byte announces, unless fewer bytes could hold them.
CodePoint stated(std::string_view rest) {
  struct Form {
    unsigned mask, mark, from, to;
  };
  constexpr Form forms[] = {
      {0x80, 0x00, 0, 0x7F}, {0xE0, 0xC0, 0x80, 0x7FF}, {0xF0, 0xE0, 0x800, 0xFFFF}, {0xF8, 0xF0, 0x10000, 0x10FFFF}};
  const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(rest[place]); };
  for (std::size_t size = 1; size <= std::min<std::size_t>(4, rest.size()); ++size) {
    const Form& form = forms[size - 1];
    unsigned value = byte(0) & ~form.mask & 0xFFU;
    bool holds = (byte(0) & form.mask) == form.mark;
    for (std::size_t place = 1; place < size; ++place) {
      holds = holds && byte(place) / 0x40 == 2;
      value = value * 0x40 + byte(place) % 0x40;
    }
    if (holds && value >= form.from && value <= form.to) {
      return {value, size};
    }
  }
  return {0xDC00U + byte(0), 1};
}

std::u32string read_backward(std::string_view text) {
  std::u32string reversed;
  while (!text.empty()) {
    const CodePoint last = last_code_point(text);
    reversed += last.value;
    text.remove_suffix(last.size);
  }
  return {reversed.rbegin(), reversed.rend()};
}

void expect_reading_as_stated(const std::string& text) {
  std::u32string expected;
  for (std::string_view rest = text; !rest.empty();) {
    const CodePoint next = stated(rest);
    expected += next.value;
    rest.remove_prefix(next.size);
  }
  ASSERT_EQ(decode(text), expected) << ::testing::PrintToString(text);
  ASSERT_EQ(read_backward(text), expected) << ::testing::PrintToString(text);
  ASSERT_EQ(count_code_points(text), expected.size());
}

TEST(CodePoints, EveryByteStringHasOneReadingFromBothEnds) {
  for (unsigned pair = 0; pair < 0x10000; ++pair) {
    const std::string two = {static_cast<char>(pair >> 8U), static_cast<char>(pair & 0xFFU)};
    expect_reading_as_stated(two);
    for (unsigned lead = 0xE0; lead < 0xF0; ++lead) {
      expect_reading_as_stated(static_cast<char>(lead) + two);
    }
  }
  std::vector<std::string> texts = {""};
  for (std::size_t size = 1; size <= 4; ++size) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      for (const unsigned char byte : boundaries) {
        longer.push_back(text + static_cast<char>(byte));
        expect_reading_as_stated(longer.back());
      }
    }
    texts = std::move(longer);
  }
}

TEST(CodePoints, EveryCodePointIsReadAsItWasAppended) {
  for (char32_t code_point = 0; code_point <= 0x10FFFF; ++code_point) {
    std::string text;
    append_code_point(text, code_point);
    const CodePoint read = next_code_point(text);
    ASSERT_EQ(read.value, code_point);
    ASSERT_EQ(read.size, text.size());
  }
}

}  // namespace
}  // namespace tool_binding::text
