// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "glob.hpp"
#include "handlers/keywords.hpp"
#include "repository.hpp"
#include "support/one_line.hpp"
#include "symbols.hpp"
#include "text.hpp"
#include "tools.hpp"
#include "utc.hpp"

namespace repo_daemon_test {

namespace {

namespace tb = tool_binding;

/// The daemon's tools, declared once for all tests, as for all requests.
void declare_tools_once() {
  static const repo_daemon::Repository repository(".");
  static const tb::server::Server server =
      repo_daemon::served_tools({{"repository", tb::KeywordArgument::context(repository)},
                                 {"root", tb::KeywordArgument::context(repository.root())}});
}

}  // namespace

TEST(RepoDaemonParts, compare_paths_with_patterns) {
  const struct {
    const char* pattern;
    std::vector<const char*> matches;
    std::vector<const char*> others;
  } rows[] = {
      {"*.cpp", {"a.cpp", "src/a.cpp", ".cpp"}, {"a.cpp/b", "a.hpp", "a.cppx"}},
      {"src/*.cpp", {"src/a.cpp"}, {"src/b/a.cpp", "a.cpp", "lib/src/a.cpp"}},
      {"src/**/*.cpp", {"src/a.cpp", "src/b/c/a.cpp"}, {"srcs/a.cpp", "src/a.hpp"}},
      {"**/b.*", {"b.c", "a/b.c", "a/a/b."}, {"ab.c", "a/ab.c"}},
      {"src/**", {"src/a", "src/b/c"}, {"src", "lib/src/a"}},
      {"?.c", {"a.c", "ä.c", "x/b.c"}, {".c", "ab.c"}},
      {"a*b*c", {"abc", "aXbXbXc"}, {"acb", "ab"}},
      {"", {""}, {"a"}},
      {"*.{h,c}pp", {"a.hpp", "src/a.cpp"}, {"a.pp", "a.h,c", "a.{h,c}pp"}},
      {"{src,lib/**}/{a,}*.c", {"src/a.c", "src/b.c", "lib/x/y.c"}, {"lib.c", "src/x/a.c", "etc/a.c"}},
      {"{a{b,c},d}", {"ab", "ac", "d"}, {"a", "b", "abc", "ad"}},
      {"[ch]pp", {"cpp", "hpp"}, {"pp", "xpp", "chpp", "[ch]pp"}},
      {"[a-cä]", {"b", "ä", "x/c"}, {"d", "-", "Ã"}},
      {"x[!a-c]y", {"xdy", "x-y", "x!y"}, {"xay", "x/y", "xy"}},
      {"[]a-]", {"]", "a", "-"}, {"b", "[]a-]"}},
      {R"(\[a\]\*)", {"[a]*"}, {"a", "[a]b", R"(\[a\]\*)"}},
      {"./src/*", {"src/a"}, {"a", "lib/src/a"}},
      {"/src/", {"src/a", "src/b/c"}, {"src", "lib/src/a"}},
      {"**/a/**/b", {"a/b", "x/a/y/z/b"}, {"b", "a", "xa/b"}},
  };
  for (const auto& row : rows) {
    const std::string pattern = row.pattern;
    const repo_daemon::Glob glob({&pattern, 1});
    for (const char* const path : row.matches) {
      EXPECT_TRUE(glob.matches(path)) << row.pattern << " and " << path;
    }
    for (const char* const path : row.others) {
      EXPECT_FALSE(glob.matches(path)) << row.pattern << " and " << path;
    }
  }
}

TEST(RepoDaemonParts, refuse_patterns_that_mean_nothing) {
  const struct {
    std::vector<std::string> patterns;
    const char* expected;
  } rows[] = {
      {{"a[b"}, "refused: the pattern 'a[b' has a '[' without its ']': write '\\[' for the character itself"},
      {{"[]"}, "refused: the pattern '[]' has a '[' without its ']': write '\\[' for the character itself"},
      {{"{a,{b}"}, "refused: the pattern '{a,{b}' has a '{' without its '}': write '\\{' for the character itself"},
      {{"[z-a]"}, "refused: the pattern '[z-a]' has a range whose ends are the wrong way round"},
      {{"[[:alpha:]]"},
       "refused: the pattern '[[:alpha:]]' names a class of characters, which is not known: list the characters, as "
       "[a-z]"},
      {std::vector<std::string>(101),
       "refused: there must not be more than 100 patterns, nor more than 400 bytes of them together"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(tb::outcome_of([&] { return repo_daemon::Glob(row.patterns).matches("a"); }), row.expected);
  }
}

/// As many parts as the bytes that are allowed can come to.
TEST(RepoDaemonParts, compare_with_the_largest_patterns) {
  std::vector<std::string> patterns(100, "{,}");
  patterns.front() += std::string(100, 'x');
  const repo_daemon::Glob glob(patterns);
  EXPECT_TRUE(glob.matches("a/" + std::string(100, 'x')));
  EXPECT_TRUE(glob.matches("a/"));
  EXPECT_FALSE(glob.matches("a"));
}

TEST(RepoDaemonParts, tell_what_a_line_declares) {
  const struct {
    const char* path;
    const char* line;
    const char* expected;
  } rows[] = {
      {"a.hpp", "class Index final {", "type Index"},
      {"a.hpp", "class Index;", ""},
      {"a.hpp", "enum class Kind : char {", "type Kind"},
      {"a.hpp", "namespace outer::inner {", "namespace outer::inner"},
      {"a.hpp", "namespace {", ""},
      {"a.cpp", "  static int Index::size() const {", "function Index::size"},
      {"a.cpp", "  if (size() > 1) {", ""},
      {"a.cpp", "  } else if (empty()) {", ""},
      {"a.cpp", "  auto size = [&](int place) {", ""},
      {"a.cpp", "  return size() + 1;", ""},
      {"a.py", "    async def run(self):", "function run"},
      {"a.py", "class Runner:", "type Runner"},
      {"a.rs", "pub fn open(path: &str) -> File {", "function open"},
      {"a.md", "### How to  use it", "heading How to  use it"},
      {"a.md", "#include", ""},
      {"a.md", "class Index {", ""},
  };
  for (const auto& row : rows) {
    std::string found;
    repo_daemon::each_symbol(row.path, row.line, [&](const repo_daemon::Symbol& symbol) {
      found = std::string(symbol.kind) + " " + std::string(symbol.name);
    });
    EXPECT_EQ(found, row.expected) << row.line;
  }
}

TEST(RepoDaemonParts, show_any_bytes_as_text) {
  const struct {
    const char* shows;
    std::string given;
    std::string expected;
  } rows[] = {
      {"what is well-formed stays", "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x99\x82", "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x99\x82"},
      {"a lone surrogate, three bytes", "\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"an overlong form", "\xC0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"beyond the last character", "\xF4\x90\x80\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"an end within a character", "a\xE2\x82", "a\xEF\xBF\xBD\xEF\xBF\xBD"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(repo_daemon::shown_line(row.given), row.expected) << row.shows;
  }
}

TEST(RepoDaemonParts, escape_what_would_not_be_seen_as_it_is) {
  const struct {
    const char* shows;
    std::string given;
    std::string as_name;
    std::string as_line;
  } rows[] = {
      {"letters, emoji and joiners stay", "ä €\xF0\x9F\x99\x82\xE2\x80\x8D", "ä €\xF0\x9F\x99\x82\xE2\x80\x8D",
       "ä €\xF0\x9F\x99\x82\xE2\x80\x8D"},
      {"control characters", std::string("\0\n\r\x1B\x7F\xC2\x85", 7), R"(\x00\n\r\x1b\x7f\u0085)",
       R"(\x00\n\r\x1b\x7f\u0085)"},
      {"marks of direction", "\xE2\x80\xAE\xE2\x81\xA6\xD8\x9C", R"(\u202e\u2066\u061c)", R"(\u202e\u2066\u061c)"},
      {"line separators and invisible characters", "\xE2\x80\xA8\xEF\xBB\xBF\xF3\xA0\x81\x81",
       R"(\u2028\ufeff\U000e0041)", R"(\u2028\ufeff\U000e0041)"},
      {"what stands in many sources stays in a line", "\t\\n", R"(\t\\n)", "\t\\n"},
      {"a byte that is not UTF-8, and the character of that number", "\xE9\xC3\xA9",
       R"(\xe9)"
       "\xC3\xA9",
       "\xEF\xBF\xBD\xC3\xA9"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(repo_daemon::shown_name(row.given), row.as_name) << row.shows;
    EXPECT_EQ(repo_daemon::shown_line(row.given), row.as_line) << row.shows;
  }
}

TEST(RepoDaemonParts, keep_an_answer_within_what_a_caller_can_digest) {
  repo_daemon::Report report;
  for (int line = 0; line < 3000; ++line) {
    report.add(std::string(99, 'x'));
  }
  const std::string text = std::move(report).text("in all 3000");
  EXPECT_LT(text.size(), 132'000);
  EXPECT_TRUE(text.ends_with("x\n… and 1690 more lines, too many for one answer\nin all 3000"))
      << text.substr(text.size() - 99);
}

TEST(RepoDaemonParts, write_times_before_1970_too) {
  EXPECT_EQ(repo_daemon::utc(981'173'106'999'999'999), "2001-02-03 04:05:06Z");
  EXPECT_EQ(repo_daemon::utc(-1), "1969-12-31 23:59:59Z");
}

TEST(RepoDaemonParts, ask_the_registry_for_what_a_handler_lacks) {
  declare_tools_once();
  const tb::KeywordArguments given = {{"action", "outline"}, {"path", tb::Value()}, {"limit", tb::Value()}};
  const repo_daemon::Keywords keywords("search", given);
  EXPECT_EQ(keywords.required_count("limit"), 300U);
  EXPECT_EQ(tb::outcome_of([&] { return tb::Value(keywords.required_text("path")); }),
            "refused: search 'outline' needs 'path'");
  EXPECT_EQ(tb::outcome_of([&] { return keywords.value("kinds"); }),
            "LookupError: the handler of search was not given 'kinds'");
}

TEST(RepoDaemonParts, refuse_to_start_without_the_context_that_a_handler_takes) {
  try {
    static_cast<void>(repo_daemon::served_tools({}));
    FAIL() << "nothing was refused";
  } catch (const tb::RegistryError& error) {
    EXPECT_EQ(error.faults().size(), 5U);
    EXPECT_TRUE(error.message().starts_with("search: the handler takes 'repository', which nobody gives"))
        << error.message();
  }
}

}  // namespace repo_daemon_test
