// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "model/near_name.hpp"
#include "near_names/nearest.hpp"
#include "text/code_points.hpp"

namespace tool_binding {
namespace {

std::string nearest(std::string_view word, const std::vector<Text>& names) {
  const detail::NearCandidates candidates(names);
  const Text* const near = _nearest(word, candidates);
  return near == nullptr ? "none" : "'" + std::string(*near) + "'";
}

/// A word, the names, and the one that is near, whatever the order of the names.
void expect_nearest(const std::vector<std::tuple<const char*, std::string, std::vector<Text>, std::string>>& rows) {
  for (auto [shows, word, names, expected] : rows) {
    EXPECT_EQ(nearest(word, names), expected) << shows;
    std::reverse(names.begin(), names.end());
    EXPECT_EQ(nearest(word, names), expected) << shows << ", the other way round";
  }
}

TEST(NearNames, ScoreHighestAndOfEqualScoreAreTheGreaterText) {
  expect_nearest({{"8/9", "lmit", {"query", "limit"}, "'limit'"},
                  {"8/10, case counts", "Limit", {"limit"}, "'limit'"},
                  {"6/10", "abcde", {"abcxy"}, "'abcxy'"},
                  {"4/10", "abcde", {"abxyz"}, "none"},
                  {"6/10 and 4/10", "abcde", {"abcxy", "abxyz"}, "'abcxy'"},
                  {"8/9 and 8/10", "limi", {"limit", "limits"}, "'limit'"},
                  {"4/6, the candidate being first", "dbd", {"bad"}, "'bad'"},
                  {"2/6, the other way", "bad", {"dbd"}, "none"},
                  {"the earliest block in both", "xaxbcbc", {"bcxa"}, "none"},
                  {"equal", "abc", {"abc", "abcd", "xabc"}, "'abc'"},
                  {"no name at all", "abc", {}, "none"},
                  {"both empty", "", {"", "a"}, "''"},
                  {"one empty", "", {"a"}, "none"},
                  {"the other empty", "a", {""}, "none"},
                  {"both 4/6", "abc", {"abd", "abe"}, "'abe'"},
                  {"4/6 and 6/9, one beginning with the other", "abcd", {"ab", "abcxx"}, "'abcxx'"},
                  {"4/6 and 6/9, the shorter being the greater", "abcd", {"cd", "abcxx"}, "'cd'"},
                  {"by code points, not by bytes", "abc", {"ab\xFF", "ab\uE000"}, "'ab\uE000'"},
                  {"a name that stands twice", "abc", {"abd", "abe", "abe", "abd"}, "'abe'"},
                  {"alike in bytes only", "\u00E9a", {"\u00E8a"}, "none"},
                  {"alike, with more bytes that differ", "abc\U0001F600\U0001F601", {"abcxy"}, "'abcxy'"},
                  {"alike in their low bits only", "\u0141\u0142\u0143", {"ABC", "\u0181\u0182\u0183"}, "none"}});
}

TEST(NearNames, OfALongWordLeaveItsPopularCharactersToWidening) {
  const auto a = [](std::size_t count) { return std::string(count, 'a'); };
  const auto expect_found = [](const char* shows, const std::string& word, const std::string& name, bool found) {
    EXPECT_EQ(nearest(word, {name}), found ? "'" + name + "'" : "none") << shows;
  };
  expect_found("200 of one: no run begins", a(200), "b" + a(200), false);
  expect_found("199 of one", a(199), "b" + a(199), true);
  expect_found("a long name, but a shorter word", a(199), "b" + a(220), true);
  expect_found("from the beginning of both", a(200), a(200) + "b", true);
  expect_found("to both sides of a run", a(100) + "x" + a(99), "b" + a(100) + "x" + a(99), true);
  expect_found("three of 200 are not popular", "xxx" + a(197), "bxxx" + a(197), true);
  expect_found("four are", "xxxx" + a(196), "bxxxx" + a(196), false);
  expect_found("three of 299 are not popular", "xxx" + a(296), "bxxx" + a(296), true);
  expect_found("four of 299 are", "xxxx" + a(295), "bxxxx" + a(295), false);
  expect_found("four of 300 are not", "xxxx" + a(296), "bxxxx" + a(296), true);
  std::string accents;
  for (int count = 0; count < 199; ++count) {
    accents += "\u00E9";
  }
  expect_found("199 code points, twice the bytes", accents, "b" + accents, true);
}

std::string encoded(const std::u32string& code_points) {
  std::string text;
  for (const char32_t code_point : code_points) {
    text::append_code_point(text, code_point);
  }
  return text;
}

/// Compares searches for words of `shortest` to `longest` characters with the textbook's; gives how many found a name.
/// Half of the names are drawn from `alphabet`, the others mostly copied from the word.
int count_found(int searches, std::size_t shortest, std::size_t longest, const std::u32string& alphabet) {
  std::mt19937 random(12345);
  const auto drawn = [&](const std::u32string& copied_from) {
    std::u32string text(shortest + random() % (longest - shortest + 1), U'?');
    std::size_t place = random() % 4;
    for (char32_t& character : text) {
      const bool copied = place < copied_from.size() && random() % 8 != 0;
      character = copied ? copied_from[place] : alphabet[random() % alphabet.size()];
      ++place;
    }
    return text;
  };
  int found = 0;
  for (int search = 0; search < searches; ++search) {
    const std::u32string word = drawn({});
    std::vector<Text> names;
    for (std::size_t count = 1 + random() % 5; names.size() < count;) {
      names.emplace_back(encoded(drawn(random() % 2 == 0 ? word : std::u32string())));
    }
    const std::optional<Text> expected = model::nearest(encoded(word), names);
    EXPECT_EQ(nearest(encoded(word), names), expected ? "'" + std::string(*expected) + "'" : "none") << encoded(word);
    found += expected ? 1 : 0;
  }
  return found;
}

TEST(NearNames, AreThoseOfTheTextbook) {
  std::u32string many;
  for (char32_t next = 0x100; next < 0x180; ++next) {
    many.append(next % 8 == 0 ? 4 : 1, next);
  }
  EXPECT_GT(count_found(4000, 0, 12, U"ab"), 1000);
  EXPECT_GT(count_found(4000, 0, 12, U"abcd"), 1000);
  EXPECT_GT(count_found(2000, 0, 12, U"a\u0081\u00A1\U00010061\U0001F600z"), 500);
  EXPECT_GT(count_found(100, 60, 70, U"abcdefgh"), 20);
  EXPECT_GT(count_found(60, 195, 262, many), 20);
}

}  // namespace
}  // namespace tool_binding
