// SPDX-License-Identifier: MIT
#include "tool_binding/json/reader.hpp"

#include <array>
#include <random>
#include <regex>

#include "support/one_line.hpp"
#include "support/rounding_modes.hpp"
#include "support/rows.hpp"

namespace tool_binding::json {
namespace {

std::string repeated(std::size_t count, std::string_view piece) {
  std::string text;
  while (count-- != 0) {
    text += piece;
  }
  return text;
}

/// The quoted form of the value that a text spells, or the message with which it is refused.
std::string reading(Reader& reader, std::string_view text) {
  try {
    return one_line(reader.read(text));
  } catch (const ParseError& error) {
    return std::string(error.message());
  }
}

[[maybe_unused]] const bool reader_rows = test_rows("reader", [](const Row& row) {
  static Reader reader;
  EXPECT_EQ(reading(reader, row.given), row.expected);
});

TEST(Reader, ReadsBytesThatStandBadlyInATable) {
  const std::string zeros(400, '0');
  const std::vector<std::pair<std::string, std::string>> rows = {
      {" \t\r\n{ \"a\"\n:\r[ 1\t, 2 ] } \n", "{'a': [1, 2]}"},
      {"\"\u00e9\U0001F600,]}:[{\"", "'\u00e9\U0001F600,]}:[{'"},
      {"\"\x7f\"", R"('\x7f')"},
      {"[1" + zeros + "e-50, 0." + zeros + "1e50, -0." + zeros + "1]", "[inf, 0.0, -0.0]"},
      {"1" + zeros + ".0", "inf"},
      {"", "line 1, byte 1: a value is missing"},
      {" \n ", "line 2, byte 2: a value is missing"},
      {"\xEF\xBB\xBF{}", "line 1, byte 1: the text begins with a byte order mark"},
      {"[1\n,2\n3]", "line 3, byte 1: a comma or ']' is missing"},
      {"{}\n}", "line 2, byte 1: nothing but white space may follow the value"},
      {{"1\0", 2}, "line 1, byte 2: a number cannot continue with this byte"},
      {{"[\0]", 3}, "line 1, byte 2: this is not a valid value"},
      {"[1]\f", "line 1, byte 4: nothing but white space may follow the value"},
      {"[1\v]", "line 1, byte 3: a number cannot continue with this byte"},
      {"\u00a0", "line 1, byte 1: this is not a valid value"},
      {"// a\n1", "line 1, byte 1: this is not a valid value"},
      {"\"a\tb\"", "line 1, byte 3: a control character in a string must be escaped"},
      {"[\"a\",\n\"b\n\"]", "line 2, byte 3: a control character in a string must be escaped"},
      {"\"a\xFF\"", "line 1, byte 3: this byte is not valid UTF-8"},
      {"[\n\"\xC0\x80\"]", "line 2, byte 2: this byte is not valid UTF-8"},
      {"\"\xED\xA0\x80\"", "line 1, byte 2: this byte is not valid UTF-8"},
      {"\"\xF4\x90\x80\x80\"", "line 1, byte 2: this byte is not valid UTF-8"},
      {"\"\u00e9\xE2\x82\"", "line 1, byte 4: this byte is not valid UTF-8"}};
  Reader reader;
  for (const auto& [text, expected] : rows) {
    EXPECT_EQ(reading(reader, text), expected) << quoted_form(text);
  }
}

TEST(Reader, ReadsTheNearestDoubleInEveryRoundingMode) {
  in_every_rounding_mode([] {
    EXPECT_EQ(read("[0.3, -1e23, 9007199254740993.0]"), Value(std::vector<Value>{0.3, -1e23, 9007199254740992.0}));
  });
}

TEST(Reader, KeepsFirstPlaceAndLastValueInLargeObjects) {
  std::string text = "{";
  std::string expected = "{";
  for (int entry = 0; entry < 3000; ++entry) {
    const std::string key = "k" + std::to_string(entry % 1000);
    text.append(entry == 0 ? "\"" : ",\"").append(key).append("\":").append(std::to_string(entry));
    if (entry < 1000) {
      expected.append(entry == 0 ? "" : ", ").append(key).append(": ").append(std::to_string(entry + 2000));
    }
  }
  EXPECT_EQ(one_line(read(text + "}").mapping()), expected + "}");
}

TEST(Reader, CarriesThePlaceInTheError) {
  try {
    (void)read("[1,\n  2,\n  x]");
    FAIL();
  } catch (const ParseError& error) {
    EXPECT_EQ(error.line(), 3U);
    EXPECT_EQ(error.byte(), 3U);
  }
}

TEST(Reader, ReadsThousandLevelsAndNoMore) {
  const auto nested = [](std::size_t levels) { return repeated(levels, "[") + repeated(levels, "]"); };
  const auto in_objects = [](const char* core) { return repeated(1000, "{\"a\":") + core + repeated(1000, "}"); };
  const std::string refused = ": the text is nested deeper than 1,000 levels";
  Reader reader;
  EXPECT_EQ(reading(reader, nested(1000)), nested(1000));
  EXPECT_EQ(reading(reader, nested(1001)), "line 1, byte 1001" + refused);
  EXPECT_EQ(reading(reader, in_objects("1")), repeated(1000, "{'a': ") + "1" + repeated(1000, "}"));
  EXPECT_EQ(reading(reader, in_objects("[]")), "line 1, byte 5001" + refused);
  EXPECT_EQ(reading(reader, repeated(2'000'000, "[")), "line 1, byte 1001" + refused);
}

/// The grammar once more, by putting one letter for what is a value until nothing else is left. Texts are ASCII here.
bool is_json(std::string text) {
  using Step = std::pair<std::regex, const char*>;
  static const std::regex white("[ \t\r\n]");
  static const Step texts = {std::regex(R"re("([^"\\\x01-\x1f]|\\(["\\/bfnrt]|u[0-9a-fA-F]{4}))*")re"), "s"};
  static const Step scalars = {
      std::regex("-?(0|[1-9][0-9]*)([.][0-9]+)?([eE][-+]?[0-9]+)?|null|true|false|NaN|-?Infinity"), "v"};
  static const Step lists = {std::regex(R"(\[([sv](,[sv])*)?\])"), "v"};
  static const Step objects = {std::regex(R"(\{(s:[sv](,s:[sv])*)?\})"), "v"};
  const auto take = [&](const Step& step) { text = std::regex_replace(text, step.first, step.second); };
  take(texts);
  take(scalars);
  text = std::regex_replace(text, white, "");
  for (std::string before; before != text;) {
    before = text;
    take(lists);
    take(objects);
  }
  return text == "s" || text == "v";
}

TEST(Reader, AgreesWithThePlainGrammarOnRandomTexts) {
  constexpr std::array<std::string_view, 40> pieces{
      "{",   "}",   "[",    "]",       ",",    ":",    "\"",  "\"a\"",    "\"a\":", " ",
      "\n",  "\\",  "\\\"", "\\u0041", "0",    "1",    "-",   "+",        ".",      "e",
      "E",   "1.5", "2e5",  "-0",      "null", "true", "NaN", "Infinity", "\f",     "\x1a",
      "[1]", "{}",  "[]",   "x",       "\"\"", "\t",   "12",  "\"a\":1",  "[1,2]",  ",\"b\":[]"};
  std::mt19937 random(20);
  Reader reader;
  int accepted = 0;
  for (int round = 0; round < 15000; ++round) {
    std::string text = round % 3 == 0 ? "[" : round % 3 == 1 ? "{\"a\":" : "";
    for (std::size_t left = random() % 7; left != 0; --left) {
      text += pieces[random() % pieces.size()];
    }
    text += round % 3 == 0 ? "]" : round % 3 == 1 ? "}" : "";
    const bool expected = is_json(text);
    accepted += expected ? 1 : 0;
    ASSERT_EQ(!reading(reader, text).starts_with("line "), expected) << text;
  }
  EXPECT_GT(accepted, 500);
}

}  // namespace
}  // namespace tool_binding::json
