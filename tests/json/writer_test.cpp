// SPDX-License-Identifier: MIT
#include "tool_binding/json/writer.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tool_binding/json/reader.hpp"

namespace tool_binding::json {
namespace {

using List = std::vector<Value>;

constexpr double infinity = std::numeric_limits<double>::infinity();

struct WriterRow {
  std::string shows;
  Value value;
  std::string text;
  bool reads_back = true;
};

const std::vector<WriterRow>& rows() {
  static const std::vector<WriterRow> table{
      {"separators",
       ArgumentMap{{"tool", "search"}, {"arguments", ArgumentMap{{"limit", 5}, {"in", List{1, nullptr}}}}},
       R"({"tool": "search", "arguments": {"limit": 5, "in": [1, null]}})"},
      {"empty containers", List{List{}, ArgumentMap{}}, "[[], {}]"},
      {"words", List{true, false, infinity, -infinity}, "[true, false, Infinity, -Infinity]"},
      {"no number", std::numeric_limits<double>::quiet_NaN(), "NaN", false},
      {"integers", List{-5, Integer::from_decimal("-123456789012345678901234567890")},
       "[-5, -123456789012345678901234567890]"},
      {"doubles", List{5.0, 1e16, 1.5e-7, -0.0, 0.1}, "[5.0, 1e+16, 1.5e-07, -0.0, 0.1]"},
      {"escapes", "\"\\/\b\f\n\r\t\x01\x1f", R"("\"\\/\b\f\n\r\t\u0001\u001f")"},
      {"unescaped", "\x7f\u00e9\u2028\U0001F600", "\"\x7f\u00e9\u2028\U0001F600\""},
      {"a zero byte", std::string_view("a\0b", 3), R"("a\u0000b")"},
      {"lone surrogates", "\xED\xA0\x80x\xED\xBF\xBF", R"("\ud800x\udfff")"},
      {"bytes outside well-formed text", "a\xFFz\xC3", R"("a\udcffz\udcc3")", false},
      {"ill-formed sequences, byte by byte", "\xC0\x80\xE2\x82\xF4\x90\x80\x80",
       R"("\udcc0\udc80\udce2\udc82\udcf4\udc90\udc80\udc80")", false},
      {"a key", ArgumentMap{{"a\"\xFF", 1}}, R"({"a\"\udcff": 1})", false},
  };
  return table;
}

TEST(Writer, WritesOneLineThatReadsBackAsTheSameValue) {
  for (const WriterRow& row : rows()) {
    SCOPED_TRACE(row.shows);
    EXPECT_EQ(write(row.value), row.text);
    if (row.reads_back) {
      EXPECT_EQ(read(row.text), row.value);
    }
    EXPECT_EQ(write(read(row.text)), row.text);
  }
}

TEST(Writer, AppendsToWhatIsThere) {
  std::string out = "a ";
  write_to(out, List{1});
  EXPECT_EQ(out, "a [1]");
}

TEST(Writer, WritesMillionLevels) {
  constexpr std::size_t levels = 1'000'000;
  Value value = 1;
  for (std::size_t level = 0; level < levels; level += 2) {
    value = ArgumentMap{{"k", std::move(value)}};
    value = List{std::move(value)};
  }
  const std::string text = write(value);
  EXPECT_EQ(text.size(), levels / 2 * std::string("[{\"k\": }]").size() + 1);
  EXPECT_TRUE(text.starts_with("[{\"k\": [{"));
}

}  // namespace
}  // namespace tool_binding::json
