// SPDX-License-Identifier: MIT
#include "tool_binding/json/reader.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "tool_binding/json/writer.hpp"

namespace tool_binding::json {
namespace {

using List = std::vector<Value>;

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string nested(std::size_t levels) { return std::string(levels, '[') + std::string(levels, ']'); }

std::string zeros(std::size_t count) { return std::string(count, '0'); }

/// The message with which a text is refused; empty where it is accepted.
std::string refusal(Reader& reader, std::string_view text) {
  try {
    (void)reader.read(text);
  } catch (const ParseError& error) {
    return std::string(error.message());
  }
  return "";
}

struct AcceptedRow {
  std::string shows;
  std::string text;
  Value value;
};

const std::vector<AcceptedRow>& accepted() {
  static const std::vector<AcceptedRow> rows{
      {"words", "[null, true, false]", List{nullptr, true, false}},
      {"words for doubles", "[Infinity,-Infinity]", List{infinity, -infinity}},
      {"white space of every kind", " \t\r\n{ \"a\"\n:\r[ 1\t, 2 ] } \n", ArgumentMap{{"a", List{1, 2}}}},
      {"a scalar alone", "5", 5},
      {"empty containers", "[[],{},[[]]]", List{List{}, ArgumentMap{}, List{Value(List{})}}},
      {"siblings behind containers", R"({"a":{"b":[1]},"c":[{}],"d":2})",
       ArgumentMap{{"a", ArgumentMap{{"b", List{1}}}}, {"c", List{ArgumentMap{}}}, {"d", 2}}},
      {"zeros", "[0, -0, -0.0, 0e5]", List{0, 0, -0.0, 0.0}},
      {"integers of 64 bits", "[9223372036854775807, -9223372036854775808, 123456789012345678]",
       List{std::numeric_limits<std::int64_t>::max(), std::numeric_limits<std::int64_t>::min(), 123456789012345678}},
      {"wider integers", "[9223372036854775808, -100000000000000000000000001]",
       List{Integer::from_decimal("9223372036854775808"), Integer::from_decimal("-100000000000000000000000001")}},
      {"an exponent makes a double", "[5.0, 5e0, 1E+2, 25e-1]", List{5.0, 5.0, 100.0, 2.5}},
      {"rounding at a tie", "[9007199254740993.0, 2.2250738585072011e-308]",
       List{9007199254740992.0, 0x0.fffffffffffffp-1022}},
      {"overflow", "[1e400, -1e400, 1.7976931348623159e308, 0.0001e313, 1e99999999999999999999]",
       List{infinity, -infinity, infinity, infinity, infinity}},
      {"underflow", "[1e-400, 2e-324, 3e-324, 1000e-999, 0.1e-99999999999999999999]", List{0.0, 0.0, 5e-324, 0.0, 0.0}},
      {"digits that outweigh the exponent",
       "[1" + zeros(400) + "e-50, 1" + zeros(400) + ".0, 0." + zeros(400) + "1e50, -0." + zeros(400) + "1]",
       List{infinity, infinity, 0.0, -0.0}},
      {"a zero of any exponent", "[0e400, 0.0e99999999999999999999]", List{0.0, 0.0}},
      {"short escapes", R"("\"\\\/\b\f\n\r\t")", "\"\\/\b\f\n\r\t"},
      {"code points", R"("\u0041\u00e9\u20AC\uD83D\ude00")", "A\u00e9\u20ac\U0001F600"},
      {"a zero byte", R"("a\u0000b")", std::string_view("a\0b", 3)},
      {"halves of pairs", R"("\ud800 \udc00\ud83dx\ud83d\ud83d\ude00")",
       "\xED\xA0\x80 \xED\xB0\x80\xED\xA0\xBDx\xED\xA0\xBD\xF0\x9F\x98\x80"},
      {"text as it stands", "\"\u00e9\U0001F600\x7f,]}:[{\"", "\u00e9\U0001F600\x7f,]}:[{"},
      {"backslashes before the closing quote", R"(["\\", "\\\"", ","])", List{"\\", "\\\"", ","}},
      {"a key with escapes", R"({"\u0061":1})", ArgumentMap{{"a", 1}}},
      {"a repeated key", R"({"a":1,"b":2,"\u0061":[3],"b":4,"c":5})", ArgumentMap{{"a", List{3}}, {"b", 4}, {"c", 5}}},
  };
  return rows;
}

TEST(Reader, AcceptsWhatJsonSpells) {
  Reader reader;
  for (const AcceptedRow& row : accepted()) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(refusal(reader, row.text), "");
    EXPECT_EQ(reader.read(row.text), row.value) << write(reader.read(row.text));
  }
}

TEST(Reader, TellsSignsOfZeroAndNan) {
  EXPECT_TRUE(read("-0").is_integer());
  EXPECT_TRUE(std::signbit(read("-0.0").floating()));
  EXPECT_TRUE(std::signbit(read("-1e-400").floating()));
  EXPECT_FALSE(std::signbit(read("1e-400").floating()));
  EXPECT_TRUE(std::isnan(read("NaN").floating()));
}

TEST(Reader, KeepsFirstPlaceAndLastValueInLargeObjects) {
  std::string text = "{";
  for (int entry = 0; entry < 3000; ++entry) {
    text += (entry == 0 ? "\"k" : ",\"k") + std::to_string(entry % 1000) + "\":" + std::to_string(entry);
  }
  const Value value = read(text + "}");
  ASSERT_EQ(value.mapping().size(), 1000U);
  for (std::size_t place = 0; place < 1000; ++place) {
    EXPECT_EQ(value.mapping()[place].name, std::string("k").append(std::to_string(place)));
    EXPECT_EQ(value.mapping()[place].value, Value(place + 2000));
  }
}

struct RefusedRow {
  std::string text;
  std::string message;
};

const std::vector<RefusedRow>& refused() {
  static const std::vector<RefusedRow> rows{
      {"", "line 1, byte 1: a value is missing"},
      {" \n ", "line 2, byte 2: a value is missing"},
      {"\xEF\xBB\xBF{}", "line 1, byte 1: a byte order mark stands before the value"},
      {"[1,]", "line 1, byte 4: a value is missing"},
      {"[,1]", "line 1, byte 2: a value is missing"},
      {"[1,,2]", "line 1, byte 4: a value is missing"},
      {"[1 2]", "line 1, byte 4: a comma or ']' is missing"},
      {"[1\n,2\n3]", "line 3, byte 1: a comma or ']' is missing"},
      {"[\"a\"b]", "line 1, byte 5: a comma or ']' is missing"},
      {"[1:2]", "line 1, byte 3: a comma or ']' is missing"},
      {"[1}", "line 1, byte 3: a comma or ']' is missing"},
      {"[1", "line 1, byte 3: a comma or ']' is missing"},
      {"[", "line 1, byte 2: a value is missing"},
      {"[}", "line 1, byte 2: a value is missing"},
      {"]", "line 1, byte 1: a value is missing"},
      {"{", "line 1, byte 2: a key between double quotes is missing"},
      {"{]", "line 1, byte 2: a key between double quotes is missing"},
      {"{a:1}", "line 1, byte 2: a key between double quotes is missing"},
      {"{1:1}", "line 1, byte 2: a key between double quotes is missing"},
      {"{,}", "line 1, byte 2: a key between double quotes is missing"},
      {R"({"a":1,})", "line 1, byte 8: a key between double quotes is missing"},
      {R"({"a"})", "line 1, byte 5: a colon is missing"},
      {R"({"a" 1})", "line 1, byte 6: a colon is missing"},
      {R"({"a",1})", "line 1, byte 5: a colon is missing"},
      {R"({"a")", "line 1, byte 5: a colon is missing"},
      {R"({"a":})", "line 1, byte 6: a value is missing"},
      {R"({"a":)", "line 1, byte 6: a value is missing"},
      {R"({"a"::1})", "line 1, byte 6: a value is missing"},
      {R"({"a":1 "b":2})", "line 1, byte 8: a comma or '}' is missing"},
      {R"({"a":1])", "line 1, byte 7: a comma or '}' is missing"},
      {"1 2", "line 1, byte 3: nothing but white space may follow the value"},
      {"{}\n}", "line 2, byte 1: nothing but white space may follow the value"},
      {"[],", "line 1, byte 3: nothing but white space may follow the value"},
      {"\"a\"\"b\"", "line 1, byte 4: nothing but white space may follow the value"},
      {std::string("1\0", 2), "line 1, byte 2: a number ends before this byte"},
      {std::string("[\0]", 3), "line 1, byte 2: no value is spelled like this"},
      {"[1]\f", "line 1, byte 4: nothing but white space may follow the value"},
      {"[1\v]", "line 1, byte 3: a number ends before this byte"},
      {"\u00a0"
       "1",
       "line 1, byte 1: no value is spelled like this"},
      {"tru", "line 1, byte 1: no value is spelled like this"},
      {"[nulll]", "line 1, byte 2: no value is spelled like this"},
      {"True", "line 1, byte 1: no value is spelled like this"},
      {"nan", "line 1, byte 1: no value is spelled like this"},
      {"-NaN", "line 1, byte 2: a digit is missing"},
      {"+Infinity", "line 1, byte 1: no value is spelled like this"},
      {"-Infinit", "line 1, byte 2: a digit is missing"},
      {"'a'", "line 1, byte 1: no value is spelled like this"},
      {"// a\n1", "line 1, byte 1: no value is spelled like this"},
      {"true\"a\"", "line 1, byte 1: no value is spelled like this"},
      {"+1", "line 1, byte 1: no value is spelled like this"},
      {".5", "line 1, byte 1: no value is spelled like this"},
      {"-", "line 1, byte 2: a digit is missing"},
      {"-.5", "line 1, byte 2: a digit is missing"},
      {"--1", "line 1, byte 2: a digit is missing"},
      {"[1.]", "line 1, byte 4: a digit is missing"},
      {"1.e5", "line 1, byte 3: a digit is missing"},
      {"1e", "line 1, byte 3: a digit is missing"},
      {"1e+", "line 1, byte 4: a digit is missing"},
      {"1e+-1", "line 1, byte 4: a digit is missing"},
      {"01", "line 1, byte 2: no digit may follow a leading zero"},
      {"-00", "line 1, byte 3: no digit may follow a leading zero"},
      {"0x1F", "line 1, byte 2: a number ends before this byte"},
      {"1_000", "line 1, byte 2: a number ends before this byte"},
      {"1.5.2", "line 1, byte 4: a number ends before this byte"},
      {"1\"a\"", "line 1, byte 2: a number ends before this byte"},
      {"\"a\tb\"", "line 1, byte 3: a control character within a text must be escaped"},
      {"[\"a\",\n\"b\n\"]", "line 2, byte 3: a control character within a text must be escaped"},
      {"[\"\\\"a, 1]", "line 1, byte 2: the text that begins here is not closed"},
      {"\"", "line 1, byte 1: the text that begins here is not closed"},
      {R"("a\x41")", "line 1, byte 3: no escape is spelled like this"},
      {R"("\'")", "line 1, byte 2: no escape is spelled like this"},
      {R"("\u12g4")", "line 1, byte 2: after \\u stand four hexadecimal digits"},
      {R"("\u+123")", "line 1, byte 2: after \\u stand four hexadecimal digits"},
      {R"("\ud83d\u12")", "line 1, byte 8: after \\u stand four hexadecimal digits"},
      {R"("\U0041")", "line 1, byte 2: no escape is spelled like this"},
      {"\"a\xFF\"", "line 1, byte 3: this byte is no part of well-formed UTF-8"},
      {"[\n\"\xC0\x80\"]", "line 2, byte 2: this byte is no part of well-formed UTF-8"},
      {"\"\xED\xA0\x80\"", "line 1, byte 2: this byte is no part of well-formed UTF-8"},
      {"\"\xF4\x90\x80\x80\"", "line 1, byte 2: this byte is no part of well-formed UTF-8"},
      {"\"\u00e9\xE2\x82\"", "line 1, byte 4: this byte is no part of well-formed UTF-8"},
  };
  return rows;
}

TEST(Reader, RefusesAnythingElseWithLineAndByte) {
  Reader reader;
  for (const RefusedRow& row : refused()) {
    EXPECT_EQ(refusal(reader, row.text), row.message) << row.text;
  }
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
  Reader reader;
  EXPECT_EQ(write(reader.read(nested(1000))), nested(1000));
  EXPECT_EQ(refusal(reader, nested(1001)), "line 1, byte 1001: the text is nested deeper than 1,000 levels");
  std::string objects;
  for (int level = 0; level < 1000; ++level) {
    objects += "{\"a\":";
  }
  EXPECT_EQ(refusal(reader, objects + "1" + std::string(1000, '}')), "");
  EXPECT_EQ(refusal(reader, objects + "[]" + std::string(1000, '}')),
            "line 1, byte 5001: the text is nested deeper than 1,000 levels");
  EXPECT_EQ(refusal(reader, std::string(2'000'000, '[')),
            "line 1, byte 1001: the text is nested deeper than 1,000 levels");
}

/// The grammar once more, in the plainest words: whether a text is what the reader must accept. Texts are ASCII here.
class PlainGrammar {
 public:
  explicit PlainGrammar(std::string_view text) : rest_(text) {}
  bool accepts() { return value() && (white(), rest_.empty()); }

 private:
  bool take(std::string_view wanted) {
    const bool found = rest_.starts_with(wanted);
    rest_.remove_prefix(found ? wanted.size() : 0);
    return found;
  }
  bool one_of(std::string_view bytes) {
    const bool found = !rest_.empty() && bytes.find(rest_.front()) != std::string_view::npos;
    rest_.remove_prefix(found ? 1 : 0);
    return found;
  }
  void white() {
    while (one_of(" \t\r\n")) {
    }
  }
  bool digits() {
    const std::size_t before = rest_.size();
    while (one_of("0123456789")) {
    }
    return rest_.size() != before;
  }
  bool number() {
    take("-");
    if (!take("0") && !digits()) {
      return false;
    }
    if (take(".") && !digits()) {
      return false;
    }
    return !one_of("eE") || (one_of("+-"), digits());
  }
  bool text() {
    while (!take("\"")) {
      if (rest_.empty() || static_cast<unsigned char>(rest_.front()) < 0x20) {
        return false;
      }
      if (!take("\\")) {
        rest_.remove_prefix(1);
      } else if (take("u")) {
        for (int digit = 0; digit < 4; ++digit) {
          if (!one_of("0123456789abcdefABCDEF")) {
            return false;
          }
        }
      } else if (!one_of("\"\\/bfnrt")) {
        return false;
      }
    }
    return true;
  }
  bool key() { return white(), take("\"") && text() && (white(), take(":")); }
  bool members(bool keyed, std::string_view closer) {
    if (white(), take(closer)) {
      return true;
    }
    do {
      if ((keyed && !key()) || !value()) {
        return false;
      }
      white();
    } while (take(","));
    return take(closer);
  }
  bool value() {
    white();
    if (take("[")) {
      return members(false, "]");
    }
    if (take("{")) {
      return members(true, "}");
    }
    return take("\"") ? text()
                      : take("null") || take("true") || take("false") || take("NaN") || take("Infinity") ||
                            take("-Infinity") || number();
  }

  std::string_view rest_;
};

TEST(Reader, AgreesWithThePlainGrammarOnRandomTexts) {
  constexpr std::array<std::string_view, 40> pieces{
      "{",   "}",   "[",    "]",       ",",    ":",    "\"",  "\"a\"",    "\"a\":", " ",
      "\n",  "\\",  "\\\"", "\\u0041", "0",    "1",    "-",   "+",        ".",      "e",
      "E",   "1.5", "2e5",  "-0",      "null", "true", "NaN", "Infinity", "\f",     "\x1a",
      "[1]", "{}",  "[]",   "x",       "\"\"", "\t",   "12",  "\"a\":1",  "[1,2]",  ",\"b\":[]"};
  std::mt19937 random(20);
  Reader reader;
  int accepted_texts = 0;
  for (int round = 0; round < 60000; ++round) {
    std::string text = round % 3 == 0 ? "[" : round % 3 == 1 ? "{\"a\":" : "";
    for (std::size_t left = random() % 7; left != 0; --left) {
      text += pieces[random() % pieces.size()];
    }
    text += round % 3 == 0 ? "]" : round % 3 == 1 ? "}" : "";
    const bool wanted = PlainGrammar(text).accepts();
    accepted_texts += wanted ? 1 : 0;
    ASSERT_EQ(refusal(reader, text).empty(), wanted) << text;
  }
  EXPECT_GT(accepted_texts, 2000);
}

}  // namespace
}  // namespace tool_binding::json
