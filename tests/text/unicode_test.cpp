// SPDX-License-Identifier: MIT
#include "text/unicode.hpp"

#include <gtest/gtest.h>

// The tables themselves are compared with the database where it is installed: these rows are about the search in them.
namespace tool_binding::text {
namespace {

TEST(Unicode, FactsAboutCodePoints) {
  struct Row {
    const char* shows;
    char32_t given;
    int digit;
    bool printable;
    std::array<char32_t, 2> lower;
  };
  const Row rows[] = {
      {"a control", 0x1F, -1, false, {0x1F, 0}},
      {"the space", 0x20, -1, true, {0x20, 0}},
      {"the last digit of ASCII", '9', 9, true, {'9', 0}},
      {"after the digits of ASCII", ':', -1, true, {':', 0}},
      {"a letter of ASCII", 'A', -1, true, {'a', 0}},
      {"a no-break space", 0xA0, -1, false, {0xA0, 0}},
      {"a superscript", 0xB2, -1, true, {0xB2, 0}},
      {"every second one: mapped", 0x100, -1, true, {0x101, 0}},
      {"every second one: between", 0x101, -1, true, {0x101, 0}},
      {"two code points", 0x130, -1, true, {0x69, 0x307}},
      {"unassigned", 0x378, -1, false, {0x378, 0}},
      {"before the digits of a script", 0x65F, -1, true, {0x65F, 0}},
      {"the first digit of a script", 0x660, 0, true, {0x660, 0}},
      {"after the digits of a script", 0x66A, -1, true, {0x66A, 0}},
      {"a far offset", 0x13A0, -1, true, {0xAB70, 0}},
      {"a line separator", 0x2028, -1, false, {0x2028, 0}},
      {"within a block that is listed by its ends", 0x4E01, -1, true, {0x4E01, 0}},
      {"a lone surrogate", 0xDC80, -1, false, {0xDC80, 0}},
      {"beyond the first plane", 0x10400, -1, true, {0x10428, 0}},
      {"the last of neighbouring runs of digits", 0x1D7FF, 9, true, {0x1D7FF, 0}},
      {"no code point", 0x110000, -1, false, {0x110000, 0}},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(decimal_digit(row.given), row.digit) << row.shows;
    EXPECT_EQ(is_printable(row.given), row.printable) << row.shows;
    EXPECT_EQ(lower_mapping(row.given), row.lower) << row.shows;
  }
}

}  // namespace
}  // namespace tool_binding::text
