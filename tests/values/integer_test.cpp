// SPDX-License-Identifier: MIT
#include "tool_binding/integer.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/one_line.hpp"

namespace tool_binding {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double largest_double = std::numeric_limits<double>::max();

std::string read(const std::string& digits) {
  return outcome_of([&] { return Value(Text(Integer::from_decimal(digits).to_string())); });
}

TEST(Integer, IsReadAndWrittenInCanonicalDigits) {
  const std::string nines(5000, '9');
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"0", "0"},
      {"-0", "0"},
      {"-000", "0"},
      {"007", "7"},
      {"-0042", "-42"},
      {"9223372036854775807", "9223372036854775807"},
      {"9223372036854775808", "9223372036854775808"},
      {"-9223372036854775807", "-9223372036854775807"},
      {"-9223372036854775808", "-9223372036854775808"},
      {"-9223372036854775809", "-9223372036854775809"},
      {"000018446744073709551616", "18446744073709551616"},
      {"-00" + nines, "-" + nines},
  };
  for (const auto& [given, expected] : rows) {
    EXPECT_EQ(read(given), "'" + expected + "'") << given;
    EXPECT_EQ(Integer::from_decimal(given).to_int64().has_value(),
              Integer::from_decimal(given) <= std::numeric_limits<std::int64_t>::max() &&
                  Integer::from_decimal(given) >= std::numeric_limits<std::int64_t>::min())
        << given;
  }
  for (const char* given : {"", "-", "+1", "--1", " 1", "1 ", "1_0", "1.0", "1a", "\u0661", "-a"}) {
    EXPECT_EQ(read(given), "ValueError: an integer is written in decimal digits, after '-' for a negative one");
  }
}

TEST(Integer, IsMadeFromEveryWidth) {
  EXPECT_EQ(Integer(std::numeric_limits<std::int64_t>::min()).to_string(), "-9223372036854775808");
  EXPECT_EQ(Integer(std::numeric_limits<std::uint64_t>::max()).to_string(), "18446744073709551615");
  EXPECT_EQ(Integer(std::uint64_t{1} << 63U), Integer::from_decimal("9223372036854775808"));
  EXPECT_EQ(Integer(std::uint64_t{1} << 62U).to_int64(), std::int64_t{1} << 62U);
  EXPECT_EQ(Integer(std::uint8_t{255}), 255);
}

TEST(Integer, IsOrderedByItsValue) {
  std::vector<Integer> ascending;
  for (const char* digits :
       {"-100000000000000000001", "-100000000000000000000", "-99999999999999999999", "-9223372036854775809",
        "-9223372036854775808", "-5", "0", "5", "9223372036854775807", "9223372036854775808", "99999999999999999999",
        "100000000000000000000", "100000000000000000001", "200000000000000000000"}) {
    ascending.push_back(Integer::from_decimal(digits));
  }
  for (std::size_t left = 0; left < ascending.size(); ++left) {
    for (std::size_t right = 0; right < ascending.size(); ++right) {
      EXPECT_EQ(ascending[left] <=> ascending[right], left <=> right) << left << " and " << right;
      EXPECT_EQ(ascending[left] == ascending[right], left == right) << left << " and " << right;
    }
  }
}

TEST(Integer, ComparesWithADoubleExactly) {
  struct Row {
    const char* left;
    double right;
    std::partial_ordering expected;
  };
  constexpr auto less = std::partial_ordering::less;
  constexpr auto greater = std::partial_ordering::greater;
  constexpr auto equal = std::partial_ordering::equivalent;
  const double two_to_63 = std::ldexp(1.0, 63);
  const Row rows[] = {
      {"0", -0.0, equal},
      {"0", 0.5, less},
      {"0", -0.5, greater},
      {"-1", -0.5, less},
      {"-1", -1.5, greater},
      {"5", 5.0, equal},
      {"5", 5e-324, greater},
      {"9007199254740993", 9007199254740992.0, greater},
      {"9007199254740993", 9007199254740994.0, less},
      {"-9007199254740993", -9007199254740992.0, less},
      {"9223372036854775807", two_to_63, less},
      {"9223372036854775808", two_to_63, equal},
      {"9223372036854775809", two_to_63, greater},
      {"9223372036854775807", std::nextafter(two_to_63, 0.0), greater},
      {"9223372036854775808", std::nextafter(two_to_63, 0.0), greater},
      {"-9223372036854775808", -two_to_63, equal},
      {"-9223372036854775809", -two_to_63, less},
      {"-9223372036854775808", std::nextafter(-two_to_63, -infinity), greater},
      {"-9223372036854775809", std::nextafter(-two_to_63, -infinity), greater},
      {"9223372036854775808", -two_to_63, greater},
      {"-9223372036854775809", two_to_63, less},
      {"100000000000000000000", 0.5, greater},
      {"-100000000000000000000", -0.5, less},
      {"99999999999999999999", 1e20, less},
      {"100000000000000000000", 1e20, equal},
      {"100000000000000000000", largest_double, less},
      {"100000000000000000000", infinity, less},
      {"100000000000000000000", -infinity, greater},
      {"-100000000000000000000", -infinity, greater},
      {"5", infinity, less},
      {"5", -infinity, greater},
      {"5", not_a_number, std::partial_ordering::unordered},
      {"100000000000000000000", not_a_number, std::partial_ordering::unordered},
  };
  for (const Row& row : rows) {
    EXPECT_TRUE(Integer::from_decimal(row.left).compare(row.right) == row.expected) << row.left << ", " << row.right;
  }
  EXPECT_TRUE(Integer::from_decimal(std::string(400, '9')).compare(largest_double) > 0);
}

TEST(Integer, RoundsToTheNearestDouble) {
  // Half a unit beyond the largest double: from here on the nearest one is none.
  const std::string beyond =
      "1797693134862315807937289714053034150799341327100378269361737789804449682927647509466490179775872070963302864166"
      "9"
      "2887910946555547851940402630657488671505820681908902000708383676273854845817711531764475730270069855571366959622"
      "8"
      "42914819860834936475292719074168444365510704342711559699508093042880177904174497792";
  const std::string below = beyond.substr(0, beyond.size() - 1) + "1";
  struct Row {
    std::string given;
    double expected;
  };
  const Row rows[] = {
      {"0", 0.0},
      {"-9223372036854775808", -9223372036854775808.0},
      {"9007199254740993", 9007199254740992.0},
      {"9007199254740995", 9007199254740996.0},
      {"18446744073709553664", 18446744073709551616.0},
      {"18446744073709553665", 18446744073709555712.0},
      {"-18446744073709553665", -18446744073709555712.0},
      {"18446744073709557760", 18446744073709559808.0},
      {below, largest_double},
      {"-" + below, -largest_double},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Integer::from_decimal(row.given).to_double(), row.expected) << row.given;
  }
  for (const std::string& given : {beyond, "-" + beyond, std::string(100'000, '9')}) {
    EXPECT_THROW((void)Integer::from_decimal(given).to_double(), std::overflow_error) << given.size();
  }
}

TEST(Integer, IsCutFromADoubleTowardZero) {
  const std::vector<std::pair<double, std::string>> rows = {
      {0.9, "0"},
      {-0.9, "0"},
      {2.5, "2"},
      {-2.5, "-2"},
      {std::ldexp(1.0, 62), "4611686018427387904"},
      {std::ldexp(1.0, 63), "9223372036854775808"},
      {-std::ldexp(1.0, 63), "-9223372036854775808"},
      {std::nextafter(-std::ldexp(1.0, 63), -infinity), "-9223372036854777856"},
      {1e22, "10000000000000000000000"},
      {1e23, "99999999999999991611392"},
  };
  for (const auto& [given, expected] : rows) {
    EXPECT_EQ(Integer::truncated(given).to_string(), expected) << given;
  }
  EXPECT_EQ(Integer::truncated(-largest_double).to_double(), -largest_double);
  EXPECT_EQ(Integer::truncated(std::ldexp(1.0, 63)).to_int64(), std::nullopt);
  EXPECT_EQ(outcome_of([] { return Value(Integer::truncated(-infinity)); }), "overflow_error");
  EXPECT_EQ(outcome_of([] { return Value(Integer::truncated(not_a_number)); }),
            "ValueError: not a number has no whole part");
}

}  // namespace
}  // namespace tool_binding
