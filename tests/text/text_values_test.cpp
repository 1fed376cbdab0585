// SPDX-License-Identifier: MIT
#include "tool_binding/utils/text_values.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tool_binding/errors.hpp"

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

struct Row {
  const char* shows;
  std::string given;
  std::vector<Value> expected;
};

void expect_items(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(Value(split_csv(row.given)), Value(row.expected))
        << row.shows << ": " << quoted_form(split_csv(row.given));
  }
}

void expect_refused(const std::vector<std::string>& rows) {
  for (const std::string& given : rows) {
    EXPECT_THROW((void)split_csv(given), ValueError) << given;
  }
}

TEST(SplitCsv, ReadsWhatPeopleWrite) {
  expect_items({
      {"nothing", "", {}},
      {"nothing but commas", " ,\t,\u3000", {}},
      {"one item", "a", {"a"}},
      {"white space around items", " a ,\tb c\u00A0,\u3000d", {"a", "b c", "d"}},
      {"empty items", ",a,,b,", {"a", "b"}},
      {"a quoted item", " \"a, b\" ,c", {"a, b", "c"}},
      {"quoted and empty", "\"\",\" \"", {"", " "}},
      {"a doubled quote", "\"say \"\"a\"\"\"", {"say \"a\""}},
      {"nothing but a doubled quote", "\"\"\"\"", {"\""}},
      {"a quote within an item", "5\" disk,it's", {"5\" disk", "it's"}},
      {"single quotes and backslashes stand", "'a,b',\"c\\n\"", {"'a", "b'", "c\\n"}},
      {"a bracket at one end", "[a,b", {"[a", "b"}},
      {"brackets within", "a[1],{b}", {"a[1]", "{b}"}},
      {"numbers stay text", "1,2.0,true", {"1", "2.0", "true"}},
      {"stray bytes travel", "\x80,\xED\xA0\x80", {"\x80", "\xED\xA0\x80"}},
  });
  expect_refused({"\"", "\"a", "a,\"b", "\"a\" b", "\"a\"\"", "\"a\"b,c", "\"a\" \"b\""});
}

TEST(SplitCsv, ReadsWhatProgramsWrite) {
  expect_items({
      {"nothing", "[]", {}},
      {"nothing but white space", " [ \u3000] ", {}},
      {"unquoted items", "[a, b c ,1]", {"a", "b c", "1"}},
      {"a closing comma", "[\"a\",]", {"a"}},
      {"both quotes", "[\"a, 'b'\", 'c, \"d\"']", {"a, 'b'", "c, \"d\""}},
      {"quoted and empty", "['', \"\"]", {"", ""}},
      {"escapes", R"(["\"\\\/\b\f\n\r\t\'", '\'\"'])", {"\"\\/\b\f\n\r\t'", "'\""}},
      {"an escaped backslash before the end", R"(["a\\"])", {"a\\"}},
      {"escaped code units", R"(["\u0041\u00e9\uFFFD\u0000"])", {std::string("A\u00E9\uFFFD\0", 7)}},
      {"a surrogate pair", R"(["\uD83D\uDE00"])", {"\U0001F600"}},
      {"brackets within quotes", "[\"[a]\", '{']", {"[a]", "{"}},
      {"a bracket later in an item", "[a[0], b]]", {"a[0]", "b]"}},
      {"a quote within an item", "[it's, \u0394\"]", {"it's", "\u0394\""}},
  });
  expect_refused({"[[a]]", "[a, [b]]", "[{\"a\": 1}]", "[a],[b]", "[\"a]", "['a' b]", "[\"a\" \"b\"]", R"(["\x41"])",
                  R"(["\a"])", R"(["\"])", R"(["\u12"])", R"(["\u12g4"])", R"(["\u+123"])", R"(["\ud83d"])",
                  R"(["\ud83d\u0041"])", R"(["\ud83dxxde00"])", R"(["\ude00"])", "[\"a\"\"b\"]"});
}

TEST(SplitCsv, AllocatesAPlainListOnce) {
  const std::vector<Value> items = split_csv("a,b,c,d,e");
  EXPECT_EQ(items.capacity(), items.size());
}

}  // namespace
}  // namespace tool_binding
