// SPDX-License-Identifier: MIT
#include "tool_binding/integer.hpp"

#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

constexpr double largest_double = std::numeric_limits<double>::max();
const std::string nines(400, '9');

std::string read(const std::string& digits) {
  return outcome_of([&] { return Value(Text(Integer::from_decimal(digits).to_string())); });
}

TEST(Integer, IsReadAndWrittenInCanonicalDigits) {
  for (const char* digits : {"0", "7", "-42", "9223372036854775807", "9223372036854775808", "-9223372036854775808",
                             "-9223372036854775809", "18446744073709551616"}) {
    EXPECT_EQ(read(digits), "'" + std::string(digits) + "'");
    EXPECT_EQ(
        Integer::from_decimal(digits).to_int64().has_value(),
        std::abs(std::strtold(digits, nullptr)) < 9223372036854775808.0L || read(digits) == "'-9223372036854775808'");
  }
  EXPECT_EQ(read("-000"), "'0'");
  EXPECT_EQ(read("-0042"), "'-42'");
  EXPECT_EQ(read("-00" + nines), "'-" + nines + "'");
  for (const char* given : {"", "-", "+1", "--1", " 1", "1 ", "1_0", "1.0", "1a", "\u0661", "-a"}) {
    EXPECT_EQ(read(given), "ValueError: an integer is written in decimal digits, after '-' for a negative one");
  }
}

TEST(Integer, IsMadeFromEveryWidth) {
  EXPECT_EQ(Integer(std::numeric_limits<std::int64_t>::min()).to_string(), "-9223372036854775808");
  EXPECT_EQ(Integer(std::numeric_limits<std::uint64_t>::max()).to_string(), "18446744073709551615");
  EXPECT_EQ(Integer(std::uint64_t{1} << 63U), Integer::from_decimal("9223372036854775808"));
  EXPECT_EQ(Integer(std::uint8_t{255}), 255);
#ifdef __SIZEOF_INT128__
  // An integer to the standard library in GNU mode only; elsewhere none is made of it.
  __extension__ using Wide = __int128;
  __extension__ using WideUnsigned = unsigned __int128;
  const auto digits = []<class Number>(Number number) {
    if constexpr (std::integral<Number>) {
      return Value(number).integer().to_string();
    } else {
      static_assert(!std::constructible_from<Value, Number>);
      return std::string();
    }
  };
  if (std::integral<Wide>) {
    const Wide two_64 = Wide{1} << 64U;
    EXPECT_EQ(digits(two_64), "18446744073709551616");
    EXPECT_EQ(digits(-two_64 * (two_64 / 2)), "-170141183460469231731687303715884105728");
    EXPECT_EQ(digits(~WideUnsigned{0}), "340282366920938463463374607431768211455");
    EXPECT_EQ(digits(-Wide{1}), "-1");
    EXPECT_EQ(digits(two_64 / 2), "9223372036854775808");
    EXPECT_EQ(digits(-two_64 / 2), "-9223372036854775808");
  }
#endif
}

/// The numbers of a line: integers, and doubles where one has a point, an exponent or a word.
std::vector<Value> numbers(const std::string& line) {
  std::istringstream words(line);
  std::vector<Value> values;
  for (std::string word; words >> word;) {
    const bool is_integer = word.find_first_of(".ein") == std::string::npos;
    double number = 0;
    std::from_chars(word.data(), word.data() + word.size(), number);  // with any locale the same
    values.push_back(is_integer ? Value(Integer::from_decimal(word)) : Value(number));
  }
  return values;
}

/// The order of two values of which one is an integer.
std::partial_ordering order(const Value& left, const Value& right) {
  if (left.is_integer() && right.is_integer()) {
    return left.integer() <=> right.integer();
  }
  return left.is_integer() ? left.integer().compare(right.floating()) : 0 <=> right.integer().compare(left.floating());
}

TEST(Integer, IsOrderedByItsExactValueAmongIntegersAndDoubles) {
  const std::vector<Value> ascending = numbers(
      "-inf -" + nines +
      " -1.7976931348623157e308 -100000000000000000001 -1e20 -99999999999999999999 -9223372036854777856.0 "
      "-9223372036854775809 -9223372036854775808.0 -9223372036854775807 -9007199254740993 -9007199254740992.0 -1.5 -1 "
      "-0.5 0 5e-324 0.5 5 9007199254740992.0 9007199254740993 9007199254740994.0 9223372036854774784.0 "
      "9223372036854775807 9223372036854775808.0 9223372036854775809 99999999999999999999 1e20 100000000000000000001 "
      "200000000000000000000 1.7976931348623157e308 " +
      nines + " inf");
  for (std::size_t left = 0; left < ascending.size(); ++left) {
    for (std::size_t right = 0; right < ascending.size(); ++right) {
      if (ascending[left].is_integer() || ascending[right].is_integer()) {
        EXPECT_TRUE(order(ascending[left], ascending[right]) == (left <=> right))
            << quoted_form(ascending[left]) << " and " << quoted_form(ascending[right]);
      }
    }
  }
  const std::vector<Value> pairs = numbers(
      "0 -0.0 5 5.0 9223372036854775808 9223372036854775808.0 -9223372036854775808 -9223372036854775808.0 "
      "-100000000000000000000 -1e20");
  for (std::size_t place = 0; place < pairs.size(); place += 2) {
    EXPECT_TRUE(order(pairs[place], pairs[place + 1]) == 0) << quoted_form(pairs[place]);
    EXPECT_TRUE(order(pairs[place], NAN) == std::partial_ordering::unordered) << quoted_form(pairs[place]);
  }
}

TEST(Integer, RoundsToTheNearestDouble) {
  const std::vector<Value> pairs = numbers(
      "0 0.0 -9223372036854775808 -9223372036854775808.0 9007199254740993 9007199254740992.0 9007199254740995 "
      "9007199254740996.0 18446744073709553664 18446744073709551616.0 18446744073709553665 18446744073709555712.0 "
      "-18446744073709553665 -18446744073709555712.0");
  for (std::size_t place = 0; place < pairs.size(); place += 2) {
    EXPECT_EQ(pairs[place].integer().to_double(), pairs[place + 1].floating()) << quoted_form(pairs[place]);
  }
  // Half a unit beyond the largest double: from here on the nearest one is none.
  const std::string beyond =
      "1797693134862315807937289714053034150799341327100378269361737789804449682927647509466490179775872070963302864166"
      "9288791094655554785194040263065748867150582068190890200070838367627385484581771153176447573027006985557136695962"
      "2842914819860834936475292719074168444365510704342711559699508093042880177904174497792";
  const std::string below = beyond.substr(0, beyond.size() - 1) + "1";
  EXPECT_EQ(Integer::from_decimal(below).to_double(), largest_double);
  EXPECT_EQ(Integer::from_decimal("-" + below).to_double(), -largest_double);
  for (const std::string& given : {beyond, "-" + beyond, std::string(100'000, '9')}) {
    EXPECT_THROW((void)Integer::from_decimal(given).to_double(), std::overflow_error) << given.size();
  }
}

TEST(Integer, IsCutFromADoubleTowardZero) {
  const std::vector<Value> pairs = numbers(
      "0 0.9 0 -0.9 2 2.5 -2 -2.5 4611686018427387904 4611686018427387904.0 9223372036854775808 9223372036854775808.0 "
      "-9223372036854775808 -9223372036854775808.0 -9223372036854777856 -9223372036854777856.0 "
      "10000000000000000000000 1e22 99999999999999991611392 1e23");
  for (std::size_t place = 0; place < pairs.size(); place += 2) {
    EXPECT_EQ(Integer::truncated(pairs[place + 1].floating()), pairs[place].integer()) << quoted_form(pairs[place]);
  }
  EXPECT_EQ(Integer::truncated(-largest_double).to_double(), -largest_double);
  EXPECT_EQ(outcome_of([] { return Value(Integer::truncated(-HUGE_VAL)); }), "overflow_error");
  EXPECT_EQ(outcome_of([] { return Value(Integer::truncated(NAN)); }), "ValueError: NaN has no integer part");
}

}  // namespace
}  // namespace tool_binding
