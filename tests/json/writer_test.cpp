// SPDX-License-Identifier: MIT
#include "tool_binding/json/writer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/rows.hpp"
#include "tool_binding/json/reader.hpp"

namespace tool_binding::json {
namespace {

TEST(Writer, WritesOneLineThatReadsBackAsTheSameValue) {
  for (const Row& row : rows_of("writer.rows")) {
    const Value value = read(row.given);
    EXPECT_EQ(write(value), row.expected) << row.place;
    EXPECT_TRUE(value != value || read(row.expected) == value) << row.place;
  }
}

TEST(Writer, WritesEveryTextAsWellFormedJson) {
  const std::pair<std::string, std::string> rows[] = {
      {"\"\\/\b\f\n\r\t\x01\x1f", R"("\"\\/\b\f\n\r\t\u0001\u001f")"},
      {"\x7f\u00e9\u2028\U0001F600", "\"\x7f\u00e9\u2028\U0001F600\""},
      {{"a\0b", 3}, R"("a\u0000b")"},
      {"\xED\xA0\x80x\xED\xBF\xBF", R"("\ud800x\udfff")"},
      {"a\xFFz\xC3", R"("a\udcffz\udcc3")"},
      {"\xC0\x80\xE2\x82\xF4\x90\x80\x80", R"("\udcc0\udc80\udce2\udc82\udcf4\udc90\udc80\udc80")"}};
  for (const auto& [text, expected] : rows) {
    EXPECT_EQ(write(text), expected);
    EXPECT_EQ(write(read(expected)), expected);
    EXPECT_EQ(write(ArgumentMap{{text, 1}}), "{" + expected + ": 1}");
  }
}

TEST(Writer, AppendsToWhatIsThere) {
  std::string out = "a ";
  write_to(out, std::vector<Value>{1});
  EXPECT_EQ(out, "a [1]");
}

TEST(Writer, WritesMillionLevels) {
  constexpr std::size_t levels = 1'000'000;
  Value value = 1;
  for (std::size_t level = 0; level < levels; level += 2) {
    value = ArgumentMap{{"k", std::move(value)}};
    value = std::vector<Value>{std::move(value)};
  }
  const std::string text = write(value);
  EXPECT_EQ(text.size(), levels / 2 * std::string("[{\"k\": }]").size() + 1);
  EXPECT_TRUE(text.starts_with("[{\"k\": [{"));
}

}  // namespace
}  // namespace tool_binding::json
