// SPDX-License-Identifier: MIT
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/rounding_modes.hpp"
#include "tool_binding/value.hpp"
#include "types/numerals.hpp"

namespace tool_binding {
namespace {

constexpr double greatest_double = std::numeric_limits<double>::max();

TEST(Rounding, OfTextsIsToNearestInEveryMode) {
  struct Row {
    const char* given;
    double expected;
  };
  const Row rows[] = {
      {"0.3", 0.3},
      {"-0.1", -0.1},
      {"1_0.7", 10.7},
      {"\u0663.3", 3.3},
      {"9007199254740993", 9007199254740992.0},
      {"1e23", 1e23},
      {"123456789e-20", 123456789e-20},
      {"2.2250738585072011e-308", 2.2250738585072011e-308},
      {"1.7976931348623157e308", greatest_double},
      {"1e309", std::numeric_limits<double>::infinity()},
      {"-1e-400", -0.0},
      {"1.00000000000000011102230246251565404236316680908203125", 1.0},
  };
  in_every_rounding_mode([&] {
    for (const Row& row : rows) {
      const std::optional<double> read = types::read_floating(row.given);
      ASSERT_TRUE(read) << row.given;
      EXPECT_EQ(std::bit_cast<std::uint64_t>(*read), std::bit_cast<std::uint64_t>(row.expected)) << row.given;
    }
  });
}

TEST(Rounding, OfWhatIsWrittenIsToNearestInEveryMode) {
  std::vector<double> numbers = {0.30000000000000004, 0.3,   1e23,           5e-324,        greatest_double, 1e16,
                                 9007199254740993.0,  1e-05, 123456789.1235, 0.09999999999, 2.675,           1e22};
  for (int units = 1; units < 2000; ++units) {
    const double number = units / 100.0;
    numbers.insert(numbers.end(), {number, std::nextafter(number, 0.0), std::nextafter(number, 1e9)});
  }
  std::vector<std::string> expected;
  for (const double number : numbers) {
    expected.push_back(quoted_form(number));
  }
  EXPECT_EQ(expected[0], "0.30000000000000004");
  in_every_rounding_mode([&] {
    for (std::size_t place = 0; place < numbers.size(); ++place) {
      ASSERT_EQ(quoted_form(numbers[place]), expected[place]);
    }
  });
}

TEST(Rounding, OfIntegersIsToNearestInEveryMode) {
  struct Row {
    const char* digits;
    double nearest;
  };
  const Row rows[] = {
      {"9007199254740991", 9007199254740991.0},
      {"9007199254740993", 9007199254740992.0},
      {"-9007199254740993", -9007199254740992.0},
      {"9007199254740995", 9007199254740996.0},
      {"-9007199254740995", -9007199254740996.0},
      {"36028797018963971", 36028797018963968.0},
      {"36028797018963973", 36028797018963976.0},
      {"9223372036854775295", 9223372036854774784.0},
      {"9223372036854775807", 9223372036854775808.0},
      {"-9223372036854775808", -9223372036854775808.0},
      {"18446744073709551615", 18446744073709551616.0},
      {"18446744073709553664", 18446744073709551616.0},
      {"99999999999999999999999", 1e23},
      {"100000000000000000000001", 100000000000000008388608.0},
  };
  in_every_rounding_mode([&] {
    for (const Row& row : rows) {
      EXPECT_EQ(Integer::from_decimal(row.digits).to_double(), row.nearest) << row.digits;
    }
    EXPECT_EQ(Integer::truncated(1e23).to_string(), "99999999999999991611392");
    EXPECT_EQ(Integer::truncated(-2.9999999999999996).to_string(), "-2");
    EXPECT_TRUE(Integer(2).compare(2.0000000000000004) < 0 && Integer(2).compare(1.9999999999999998) > 0);
    EXPECT_TRUE(Integer(-2).compare(-2.0) == 0 && Integer::from_decimal("100000000000000000000001").compare(1e23) > 0);
  });
}

}  // namespace
}  // namespace tool_binding
