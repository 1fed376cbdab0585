// SPDX-License-Identifier: MIT
#include "values/forms.hpp"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/small_stack.hpp"

namespace tool_binding {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Forms, AreTheSameForAllButTexts) {
  struct Row {
    Value given;
    std::string expected;
  };
  const Row rows[] = {
      {nullptr, "None"},
      {true, "True"},
      {0, "0"},
      {Integer::from_decimal("-123456789012345678901234567890"), "-123456789012345678901234567890"},
      {5.0, "5.0"},
      {-1.5, "-1.5"},
      {0.0, "0.0"},
      {-0.0, "-0.0"},
      {0.0001, "0.0001"},
      {0.00009999999999999999, "9.999999999999999e-05"},
      {1e-05, "1e-05"},
      {1.5e-07, "1.5e-07"},
      {9007199254740993.0, "9007199254740992.0"},
      {9999999999999998.0, "9999999999999998.0"},
      {1e16, "1e+16"},
      {123456789012345680.0, "1.2345678901234568e+17"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
      {std::numeric_limits<double>::denorm_min(), "5e-324"},
      {infinity, "inf"},
      {-infinity, "-inf"},
      {NAN, "nan"},
      {-NAN, "nan"},
      {std::vector<Value>{}, "[]"},
      {std::vector<Value>{1, "a", nullptr, true, 2.0}, "[1, 'a', None, True, 2.0]"},
      {ArgumentMap{}, "{}"},
      {ArgumentMap{{"a", 1}, {"it's", "b\n"}}, "{'a': 1, \"it's\": 'b\\n'}"},
      {std::vector<Value>{std::vector<Value>{}, ArgumentMap{{"k", std::vector<Value>{1, 2}}}, 3},
       "[[], {'k': [1, 2]}, 3]"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(plain_form(row.given).view(), row.expected);
    EXPECT_EQ(quoted_form(row.given), row.expected);
  }
}

/// As the standard library writes the fewest digits, with a point.
std::string shortest(double number) {
  char buffer[32];
  const std::string digits(buffer, std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed).ptr);
  return digits + (digits.find('.') == std::string::npos ? ".0" : "");
}

TEST(Forms, OfDecimalsAndTheirNeighboursHaveTheFewestDigits) {
  for (const double scale : {1.0, 10.0, 100.0, 1000.0, 10000.0}) {
    for (const std::int64_t first : {2LL, 999'000LL, 999'999'000LL, 999'999'999'000LL, 1'000'000'000'000LL}) {
      for (std::int64_t units = first; units < first + 1000; ++units) {
        const double number = static_cast<double>(units) / scale;
        for (const double each : {number, -number, std::nextafter(number, 0.0), std::nextafter(number, infinity)}) {
          ASSERT_EQ(plain_form(each).view(), shortest(each));
        }
      }
    }
  }
}

TEST(Forms, OfATextDifferInQuotesAndEscapes) {
  struct Row {
    const char* shows;
    std::string given;
    std::string expected;
  };
  const Row rows[] = {
      {"nothing", "", "''"},
      {"nothing to escape", "read file", "'read file'"},
      {"a single quote", "it's", "\"it's\""},
      {"a double quote", "say \"a\"", "'say \"a\"'"},
      {"both quotes", "it's \"a\"", "'it\\'s \"a\"'"},
      {"backslash, tab, line feed, carriage return", "\\\t\n\r", R"('\\\t\n\r')"},
      {"other controls", {"\0\x1F\x7F\u0080\u009F", 7}, R"('\x00\x1f\x7f\x80\x9f')"},
      {"spaces other than the space", "\u00A0\u3000 ", R"('\xa0\u3000 ')"},
      {"formats and separators", "\u00AD\u200B\u2028\u2029\U000E0001", R"('\xad\u200b\u2028\u2029\U000e0001')"},
      {"private use and unassigned", "\uE000\u0378\U0010FFFF", R"('\ue000\u0378\U0010ffff')"},
      {"lone surrogates and stray bytes", "\xED\xA0\xBD\xED\xB8\x80\x80\xFF", R"('\ud83d\ude00\udc80\udcff')"},
      {"printable beyond ASCII", "\u00E9\u0301\u4E2D\U0001F600", "'\u00E9\u0301\u4E2D\U0001F600'"},
      {"among what stands", "a\nb\u200Bc", R"('a\nb\u200bc')"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(quoted_form(row.given), row.expected) << row.shows;
    EXPECT_EQ(plain_form(row.given).view(), row.given) << row.shows;
  }
}

TEST(Forms, OfDeeplyNestedValuesDoNotExhaustTheStack) {
  constexpr std::size_t depth = 1'000'000;
  Value value = 1;
  std::string expected;
  for (std::size_t level = 0; level < depth; ++level) {
    value = level % 2 == 0 ? Value(std::vector<Value>{value}) : Value(ArgumentMap{{"a", value}});
    expected += level % 2 == 0 ? "{'a': " : "[";
  }
  expected += "1";
  for (std::size_t level = 0; level < depth; ++level) {
    expected += level % 2 == 0 ? "]" : "}";
  }
  on_a_small_stack([&] {
    EXPECT_TRUE(quoted_form(value) == expected);
    EXPECT_TRUE(plain_form(value).view() == expected);
    value = {};
  });
}

}  // namespace
}  // namespace tool_binding
