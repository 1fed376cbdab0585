// SPDX-License-Identifier: MIT
#include "text/white_space.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "text/code_points.hpp"

namespace tool_binding::text {
namespace {

TEST(WhiteSpace, IsExactlyTheseCodePoints) {
  const std::set<char32_t> expected = {0x09,   0x0A,   0x0B,   0x0C,   0x0D,   0x1C,   0x1D,   0x1E,   0x1F,   0x20,
                                       0x85,   0xA0,   0x1680, 0x2000, 0x2001, 0x2002, 0x2003, 0x2004, 0x2005, 0x2006,
                                       0x2007, 0x2008, 0x2009, 0x200A, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000};
  for (char32_t code_point = 0; code_point <= 0x10FFFF; ++code_point) {
    std::string text;
    append_code_point(text, code_point);
    ASSERT_EQ(is_blank(text), expected.contains(code_point)) << std::hex << static_cast<unsigned>(code_point);
    ASSERT_EQ(strip("-" + text), is_blank(text) ? "-" : "-" + text);
  }
}

TEST(WhiteSpace, IsStrippedFromTheEndsAlone) {
  struct Row {
    const char* shows;
    std::string given;
    std::string expected;
  };
  const Row rows[] = {
      {"nothing", "", ""},
      {"nothing but white space", " \t\u3000\u0085\n", ""},
      {"the inside stays", "\u00A0 a \u3000 b\u2028\x1F", "a \u3000 b"},
      {"a zero byte is no white space", {" \0 ", 3}, {"\0", 1}},
      {"a zero width space is none", "\u200B a \uFEFF", "\u200B a \uFEFF"},
      {"a stray byte is none", " \x85 ", "\x85"},
      {"a stray byte beside the end of a space", "\xE3\x80 \x80\x80 ", "\xE3\x80 \x80\x80"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(strip(row.given), row.expected) << row.shows;
    EXPECT_EQ(is_blank(row.given), row.expected.empty()) << row.shows;
  }
}

}  // namespace
}  // namespace tool_binding::text
