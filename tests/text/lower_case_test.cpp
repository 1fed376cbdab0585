// SPDX-License-Identifier: MIT
#include "text/lower_case.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tool_binding::text {
namespace {

TEST(LowerCase, FollowsTheFullMapping) {
  struct Row {
    const char* shows;
    std::string given;
    std::string expected;
  };
  const Row rows[] = {
      {"nothing", "", ""},
      {"nothing to change", "read_file-2", "read_file-2"},
      {"next to the letters of ASCII", "@AZ[`az{", "@az[`az{"},
      {"as long as stands in a text", "ABCDEFGHIJKLMNO", "abcdefghijklmno"},
      {"longer than stands in a text", "ABCDEFGHIJKLMNOP", "abcdefghijklmnop"},
      {"other letters among ASCII", "\u00C9COLE \u0416", "\u00E9cole \u0436"},
      {"one code point becomes two", "\u0130", "i\u0307"},
      {"a sharp s stays one", "\u1E9E\u00DF", "\u00DF\u00DF"},
      {"stray bytes and lone surrogates stay", "A\x80\xED\xA0\x80\xC3Z\xC3", "a\x80\xED\xA0\x80\xC3z\xC3"},
      {"a sigma alone", "\u03A3", "\u03C3"},
      {"a sigma at the end of a word", "\u0391\u03A3 \u0391", "\u03B1\u03C2 \u03B1"},
      {"a sigma within a word", "\u0391\u03A3\u0391", "\u03B1\u03C3\u03B1"},
      {"a sigma at the start of a word", "\u0391 \u03A3\u0391", "\u03B1 \u03C3\u03B1"},
      {"sigmas in a row", "\u03A3\u03A3\u03A3", "\u03C3\u03C3\u03C2"},
      {"case-ignorable before", "\u0391.\u0301\u03A3", "\u03B1.\u0301\u03C2"},
      {"case-ignorable after, then a letter", "\u0391\u03A3'\u0391", "\u03B1\u03C3'\u03B1"},
      {"case-ignorable after, then none", "\u0391\u03A3' \u0391", "\u03B1\u03C2' \u03B1"},
      {"nothing but case-ignorable before", "'\u03A3", "'\u03C3"},
      {"cased and case-ignorable at once counts as cased", "\u02B0\u03A3", "\u02B0\u03C2"},
      {"the same after a sigma", "\u0391\u03A3\u02B0", "\u03B1\u03C3\u02B0"},
      {"a stray byte ends a word", "\u0391\x80\u03A3", "\u03B1\x80\u03C3"},
      {"a small sigma stays", "\u03B1\u03C3", "\u03B1\u03C3"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(lower_case(row.given).view(), row.expected) << row.shows;
  }
}

/// Looking around every sigma over all that is case-ignorable would take minutes here.
TEST(LowerCase, IsLinearForManySigmas) {
  constexpr std::size_t count = 200'000;
  std::string given = "a";
  std::string expected = "a";
  for (std::size_t sigma = 0; sigma < count; ++sigma) {
    given += "\u03A3'";
    expected += sigma + 1 < count ? "\u03C3'" : "\u03C2'";
  }
  const std::string ignorable(count, '\'');
  EXPECT_EQ(lower_case(ignorable + given + ignorable).view(), ignorable + expected + ignorable);
}

}  // namespace
}  // namespace tool_binding::text
