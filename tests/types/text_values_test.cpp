// SPDX-License-Identifier: MIT
#include "tool_binding/utils/text_values.hpp"

#include "support/one_line.hpp"
#include "support/rows.hpp"

namespace tool_binding {
namespace {

TEST(ParseBool, TakesTheTruthWords) {
  for (const char* given : {"true", "yes", "on", "1", "t", "y", "TRUE", " Yes\u3000", "\tT\n"}) {
    EXPECT_TRUE(parse_bool(given)) << given;
  }
  for (const char* given : {"false", "no", "off", "0", "f", "n", "False", "\u2028OFF "}) {
    EXPECT_FALSE(parse_bool(given)) << given;
  }
  for (const char* given : {"", " ", "2", "-1", "01", "tr", "truee", "t rue", "none", "\u200Btrue"}) {
    EXPECT_THROW((void)parse_bool(given), ValueError) << given;
  }
}

std::string items(std::string_view given) {
  const std::string line = outcome_of([&] { return Value(split_csv(given)); });
  return line.starts_with("ValueError: ") ? "none" : line;
}

[[maybe_unused]] const bool split_csv_rows =
    test_rows("split_csv", [](const Row& row) { EXPECT_EQ(items(row.given), row.expected); });

TEST(SplitCsv, LeavesOutWhiteSpaceAndNothingElse) {
  EXPECT_EQ(items(""), "[]");
  EXPECT_EQ(items(" ,\t,\u3000,"), "[]");
  EXPECT_EQ(items(" [ \u3000] "), "[]");
  EXPECT_EQ(items(" a ,\tb c\u00A0,\u3000d"), "['a', 'b c', 'd']");
  EXPECT_EQ(items(" \"a, b\" ,c"), "['a, b', 'c']");
  EXPECT_EQ(items("[it's, \u0394\"]"), "[\"it's\", '\u0394\"']");
  EXPECT_EQ(split_csv("\x80,\xED\xA0\x80"), (std::vector<Value>{"\x80", "\xED\xA0\x80"}));
}

TEST(SplitCsv, AllocatesAPlainListOnce) {
  const std::vector<Value> read = split_csv("a,b,c,d,e");
  EXPECT_EQ(read.capacity(), read.size());
}

}  // namespace
}  // namespace tool_binding
