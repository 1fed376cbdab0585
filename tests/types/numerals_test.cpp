// SPDX-License-Identifier: MIT
#include "types/numerals.hpp"

#include "support/one_line.hpp"
#include "support/rows.hpp"

namespace tool_binding::text {
namespace {

std::string integer(std::string_view given) {
  const auto read = types::read_integer(given);
  return read ? one_line(Value(*read)) : "none";
}

std::string floating(std::string_view given) {
  const auto read = types::read_floating(given);
  return read ? one_line(Value(*read)) : "none";
}

[[maybe_unused]] const bool numeral_rows = test_rows("numerals", [](const Row& row) {
  EXPECT_EQ(row.setting("read") == "integer" ? integer(row.given) : floating(row.given), row.expected);
});

TEST(Numerals, TakeAnyDigitsAndTheWhiteSpaceAroundThem) {
  EXPECT_EQ(integer("\u3000\u008542\x1F"), "42");
  EXPECT_EQ(integer("\u0661\u0662_3"), "123");
  EXPECT_EQ(integer("-\U0001D7D7\u0664"), "-94");
  EXPECT_EQ(floating(" 2.5\u2003"), "2.5");
  EXPECT_EQ(floating(" +NAN "), "nan");
  EXPECT_EQ(floating("\u0661.\u0665e\u0662"), "150.0");
}

TEST(Numerals, AreOfAnyLength) {
  const auto zeros = [](std::size_t count) { return std::string(count, '0'); };
  EXPECT_EQ(integer(zeros(100) + "5"), "5");
  EXPECT_EQ(integer("1" + zeros(5000)), "1" + zeros(5000));
  const std::pair<std::string, const char*> rows[] = {{"1e" + zeros(100) + "3", "1000.0"},
                                                      {"9007199254740993." + zeros(2000), "9007199254740992.0"},
                                                      {"9007199254740993." + zeros(2000) + "1", "9007199254740994.0"},
                                                      {"0." + zeros(100'000) + "25e100001", "2.5"},
                                                      {"25" + zeros(100'000) + "e-100001", "2.5"},
                                                      {"0." + zeros(100'000) + "1e100400", "inf"},
                                                      {"1" + zeros(100'000) + "e-100400", "0.0"}};
  for (const auto& [given, expected] : rows) {
    EXPECT_EQ(floating(given), expected) << given.size();
  }
}

TEST(Numerals, AreNoOtherBytes) {
  for (const std::string_view given : std::initializer_list<std::string_view>{"", " ", "1\x80", "\u00B2", "\u22121",
                                                                              "\u0131nf", std::string_view("1\0", 2)}) {
    EXPECT_EQ(integer(given), "none") << given;
    EXPECT_EQ(floating(given), "none") << given;
  }
}

}  // namespace
}  // namespace tool_binding::text
