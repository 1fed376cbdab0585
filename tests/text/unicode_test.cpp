// SPDX-License-Identifier: MIT
#include "text/unicode.hpp"

#include <gtest/gtest.h>

// The tables themselves are compared with the database where it is installed: these rows are about the search in them.
namespace tool_binding::text {
namespace {

TEST(Unicode, DecimalDigits) {
  struct Row {
    const char* shows;
    char32_t given;
    int expected;
  };
  const Row rows[] = {
      {"the last of ASCII", U'9', 9},           {"after the digits of ASCII", U':', -1},
      {"before every other script", 0x65F, -1}, {"the first of a script", 0x660, 0},
      {"the last of a script", 0x669, 9},       {"after a script", 0x66A, -1},
      {"one of neighbouring runs", 0x1D7FF, 9}, {"a superscript is none", 0xB2, -1},
      {"beyond every script", 0x10FFFF, -1},    {"no code point", 0xFFFFFFFF, -1},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(decimal_digit(row.given), row.expected) << row.shows;
  }
}

TEST(Unicode, Printable) {
  struct Row {
    const char* shows;
    char32_t given;
    bool expected;
  };
  const Row rows[] = {
      {"a control", 0x1F, false},
      {"the space", 0x20, true},
      {"delete", 0x7F, false},
      {"a no-break space", 0xA0, false},
      {"a letter", 0xE9, true},
      {"a soft hyphen", 0xAD, false},
      {"a combining accent", 0x301, true},
      {"unassigned", 0x378, false},
      {"a line separator", 0x2028, false},
      {"an unlisted ideograph of a block", 0x4E01, true},
      {"a lone surrogate", 0xDC80, false},
      {"private use", 0xE000, false},
      {"a noncharacter", 0x10FFFF, false},
      {"no code point", 0x110000, false},
      {"beyond the planes", 0x1F600, true},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(is_printable(row.given), row.expected) << row.shows;
  }
}

TEST(Unicode, LowerMappings) {
  using Mapping = std::array<char32_t, 2>;
  struct Row {
    const char* shows;
    char32_t given;
    Mapping expected;
  };
  const Row rows[] = {
      {"ASCII", U'A', {U'a', 0}},
      {"no letter", U'@', {U'@', 0}},
      {"every second one: mapped", 0x100, {0x101, 0}},
      {"every second one: between", 0x101, {0x101, 0}},
      {"two code points", 0x130, {0x69, 0x307}},
      {"a title case letter", 0x1C5, {0x1C6, 0}},
      {"a lower offset", 0x1E9E, {0xDF, 0}},
      {"a far offset", 0x13A0, {0xAB70, 0}},
      {"beyond the first plane", 0x10400, {0x10428, 0}},
      {"no code point", 0x110000, {0x110000, 0}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(lower_mapping(row.given), row.expected) << row.shows;
  }
}

}  // namespace
}  // namespace tool_binding::text
