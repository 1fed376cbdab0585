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

/// What is written reads back as the same value.
[[maybe_unused]] const bool writer_rows = test_rows("writer", [](const Row& row) {
  const Value value = read(row.given);
  EXPECT_EQ(write(value), row.expected);
  EXPECT_TRUE(value != value || read(row.expected) == value);
});

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

TEST(Writer, FindsWhatMustBeEscapedInTextsOfAnySize) {
  const std::pair<std::string, std::string> rows[] = {{"\"", "\\\""},         {"\\", "\\\\"},      {"\x1f", "\\u001f"},
                                                      {{"\0", 1}, "\\u0000"}, {"\x80", "\\udc80"}, {"\xFF", "\\udcff"},
                                                      {"\u00e9", "\u00e9"},   {"\x7f", "\x7f"},    {"!", "!"}};
  for (const auto& [given, escaped] : rows) {
    for (std::size_t size = 0; size < 50; ++size) {
      for (std::size_t place = 0; place <= size; ++place) {
        const std::string before(place, ' ');
        const std::string behind(size - place, '~');
        ASSERT_EQ(write(before + given + behind), '"' + before + escaped + behind + '"') << place;
      }
    }
  }
}

TEST(Writer, WritesPiecesAndLinesAsItWritesValues) {
  Writer writer;
  for (int line = 0; line < 2; ++line) {
    writer.open_object();
    writer.write_name("a\n");
    writer.open_list();
    writer.write_text("b");
    writer.write(std::vector<Value>{1, "c", ArgumentMap{{"d", -0.5}}});
    writer.open_list();
    writer.close_list();
    writer.close_list();
    writer.write_name("e");
    writer.write(nullptr);
    writer.close_object();
    writer.end_line();
    ASSERT_EQ(writer.text(), R"({"a\n": ["b", [1, "c", {"d": -0.5}], []], "e": null})"
                             "\n")
        << line;
    writer.clear();
  }
}

TEST(Writer, WritesOnceMoreWhatStandsThere) {
  Writer writer;
  std::string expected = "[1, \"a\"";
  writer.open_list();
  writer.write(1);
  writer.write("a");
  for (int round = 0; round < 10; ++round) {
    writer.write_again(1, writer.text().size() - 1);
    writer.write_again(0, 0);
    expected += ", " + expected.substr(1);
  }
  writer.close_list();
  EXPECT_EQ(writer.text(), expected + "]");
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
