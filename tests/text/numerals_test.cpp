// SPDX-License-Identifier: MIT
#include "text/numerals.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace tool_binding::text {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double smallest = std::numeric_limits<double>::denorm_min();
constexpr double largest = std::numeric_limits<double>::max();

std::string zeros(std::size_t count) { return std::string(count, '0'); }

TEST(ReadInteger, TakesDigitsAndASign) {
  struct Row {
    std::string given;
    std::string expected;
  };
  const Row rows[] = {
      {"-0", "0"},
      {"\u3000\u008542\x1F", "42"},
      {"-7", "-7"},
      {"+7", "7"},
      {"1_2_3", "123"},
      {"\u0661\u0662_3", "123"},
      {"-\U0001D7D7\u0664", "-94"},
      {"-9223372036854775808", "-9223372036854775808"},
      {"9223372036854775808", "9223372036854775808"},
      {"-12345678901234567890123456789", "-12345678901234567890123456789"},
      {zeros(100) + "5", "5"},
      {"1" + zeros(5000), "1" + zeros(5000)},
  };
  for (const Row& row : rows) {
    const auto read = read_integer(row.given);
    ASSERT_TRUE(read) << row.given;
    EXPECT_EQ(read->to_string(), row.expected) << row.given;
  }
}

TEST(ReadInteger, RefusesAnyOtherText) {
  for (const char* given :
       {"",    " ",   "+",   "-",   "4.0", "1e3", "0x10",  "1__0",   "_1",      "1_",
        "- 1", "--1", "+-1", "1 2", "ten", "inf", "1\x80", "\u00B2", "\u22121", "123456789012345678901234567890_"}) {
    EXPECT_FALSE(read_integer(given)) << given;
  }
  EXPECT_FALSE(read_integer({"1\0", 2}));
}

TEST(ReadFloating, RoundsToTheNearestDouble) {
  struct Row {
    std::string given;
    double expected;
  };
  const Row rows[] = {
      {" 2.5\u2003", 2.5},
      {".5", 0.5},
      {"5.", 5.0},
      {"-5.e1", -50.0},
      {"1E-3", 0.001},
      {"1e+3", 1000.0},
      {"1_0.2_5e0_1", 102.5},
      {"\u0661.\u0665e\u0662", 150.0},
      {"-0", -0.0},
      {"-0_0.0", -0.0},
      {"-Inf", -infinity},
      {"+INFINITY", infinity},
      {"1e999", infinity},
      {"1_0e999", infinity},
      {"1e-999", 0.0},
      {"-1_0e-999", -0.0},
      {"0e999", 0.0},
      {"1e" + zeros(100) + "3", 1000.0},
      {"1e99999999999999999999999999", infinity},
      {"1e-99999999999999999999999999", 0.0},
      {"0_0e99999999999999999999999999", 0.0},
      {"1.7976931348623157e308", largest},
      {"1.7976931348623159e308", infinity},
      {"1.797_6931348623159e308", infinity},
      {"1_7e307", 1.7e308},
      {"4.9e-324", smallest},
      {"4_9e-325", smallest},
      {"2.4703282292062328e-324", smallest},
      {"2.4703282292062327e-324", 0.0},
      {"2.470_3282292062327e-324", 0.0},
      {"9007199254740993." + zeros(2000), 9007199254740992.0},
      {"9007199254740993." + zeros(2000) + "1", 9007199254740994.0},
      {"0." + zeros(100'000) + "25e100001", 2.5},
      {"25" + zeros(100'000) + "e-100001", 2.5},
      {"0." + zeros(100'000) + "1e100400", infinity},
      {"1" + zeros(100'000) + "e-100400", 0.0},
  };
  for (const Row& row : rows) {
    const auto read = read_floating(row.given);
    ASSERT_TRUE(read) << row.given;
    EXPECT_EQ(*read, row.expected) << row.given;
    EXPECT_EQ(std::signbit(*read), std::signbit(row.expected)) << row.given;
  }
  for (const std::string given : {"nan", "-NaN", " +NAN "}) {
    EXPECT_TRUE(std::isnan(read_floating(given).value_or(0))) << given;
  }
}

TEST(ReadFloating, RefusesAnyOtherText) {
  for (const char* given :
       {"",    " ",    "+",     ".",    "-.",   "1,5",    "0x10",      "0x1p3",    "1e",   "1e+",  "e3",
        ".e3", "1__0", "_1.0",  "1_.0", "1._0", "1.0_",   "1e_3",      "1_e3",     "1e3_", "five", "1.2.3",
        "- 1", "--1",  "1e3.0", "1 e3", "infi", "nan(1)", "infinity1", "\u0131nf", "1\x80"}) {
    EXPECT_FALSE(read_floating(given)) << given;
  }
  EXPECT_FALSE(read_floating({"1\0", 2}));
}

}  // namespace
}  // namespace tool_binding::text
