// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <cstdlib>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::run;

std::string tools() {
  static const std::string path = file_of(R"({"tools": [
    {"name": "search", "actions": [{"name": "find", "synonyms": ["grep"]}, {"name": "list"}], "default_action": "find",
     "params": [{"name": "query", "type": "string", "synonyms": ["q", "pattern"], "required_for": ["find"]},
                {"name": "limit", "type": "integer", "maximum": 100, "default": 20, "action_defaults": {"list": 50}},
                {"name": "score", "type": "number", "maximum": 1},
                {"name": "kinds", "type": "array", "items_type": "string", "enum": ["class", "function"]},
                {"name": "words", "type": "array", "items_type": "string"},
                {"name": "regex", "type": "boolean", "default": false}],
     "handler": {"parameters": [{"name": "rest", "kind": "VAR_KEYWORD"}]}},
    {"name": "choose", "actions": [{"name": "one"}], "params": [{"name": "p", "type": "array", "required": true}]}]})");
  return path;
}

std::vector<std::string> explain(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"explain", "--registry", tools()});
  return arguments;
}

/// The section under that heading, without it.
std::string section(const std::string& page, const std::string& heading) {
  const std::size_t begin = page.find("\n\n" + heading + "\n");
  if (begin == std::string::npos) {
    return "no " + heading + " in: " + page;
  }
  const std::size_t first = begin + heading.size() + 3;
  return page.substr(first, page.find("\n\n", first) + 1 - first);
}

TEST(Explain, ShowsWhatEachArgumentBecameAndWhy) {
  const Finished finished = run(explain({"search", "q=open", "pattern=5", "action=Grep", "limit=\"500\"", "score=2",
                                         "regex=no", "repo=x", "kinds=[\"Class\"]", "words=[1]"}));
  EXPECT_EQ(finished.out.substr(0, 17), "search: admitted\n");
  EXPECT_EQ(section(finished.out, "arguments"), R"(  query    "open"     sent as 'q', a synonym
  pattern  left out   'query' was given too
  action   "find"     'Grep' read as declared
  limit    100        text read as an integer; clamped to its bounds
  score    1.0        an integer read as a floating number; clamped to its bounds
  regex    false      text read as a boolean
  repo     left out   its name is reserved
  kinds    ["class"]  ['Class'] read as declared
  words    ["1"]      items read as text
)");
  EXPECT_EQ(section(finished.out, "notes"), R"(  'q' was read as 'query'
  'pattern' was left out: 'query' was given too
  the action 'Grep' was read as 'find'
  'limit' 500 is above the maximum: 100 was used
  'score' 2.0 is above the maximum: 1.0 was used
)");
  EXPECT_EQ(finished.status, 0);
}

TEST(Explain, ShowsWhereKeywordsComeFrom) {
  const Finished finished = run(explain({"search", "query=a", "score=null", "words= "}));
  EXPECT_EQ(section(finished.out, "arguments"), R"(  query   "a"
  score   left out  null
  words   left out  blank
  action  "find"    the default action
)");
  EXPECT_EQ(section(finished.out, "keywords"), R"(  action  "find"
  query   "a"
  limit   null    its default depends on the action: 20 for 'find'
  score   null    default
  kinds   null    default
  words   null    default
  regex   false   default
)");
}

TEST(Explain, ShowsEachProblemOnALine) {
  const Finished finished = run(
      explain({"search", "limt=1", "kinds=[\"a; b\", \"class\", \"a; b; c\"]", "regex=x; Parameter 'y'", "score={}"}));
  EXPECT_EQ(finished.out.substr(0, 16), "search: refused\n");
  EXPECT_EQ(
      section(finished.out, "problems"),
      R"(  Unknown parameter 'limt' for search. Did you mean 'limit'? It takes: query, limit, score, kinds, words, regex.
  Parameter 'kinds' of search must each be one of: class, function; not 'a; b'
  Parameter 'kinds' of search must each be one of: class, function; not 'a; b; c'
  Parameter 'regex' of search must be true or false, not "x; Parameter 'y'"
  Parameter 'score' of search must be a number, not {}
  search 'find' needs 'query'
)");
  EXPECT_EQ(finished.status, 1);
  EXPECT_EQ(section(run(explain({"choose", "q=1", "action=[]"})).out, "problems"),
            "  Unknown parameter 'q' for choose. It takes: p.\n  Unknown action '[]' for choose: one of one\n");
  EXPECT_EQ(section(run(explain({"choose"})).out, "problems"), "  choose needs an 'action': one of one\n");
}

TEST(Explain, ShowsWhatBecameOfTheOtherArgumentsOfARefusal) {
  const Finished finished = run(explain({"search", "limt=1", "pattern=a", "query={}", "limit=\"500\"", "words="}));
  EXPECT_EQ(section(finished.out, "arguments"), R"(  query   "a"       sent as 'pattern', a synonym
  limit   100       text read as an integer; clamped to its bounds
  words   left out  blank
  action  "find"    the default action
)");
  EXPECT_EQ(section(finished.out, "notes"), R"(  'pattern' was read as 'query'
  'limit' 500 is above the maximum: 100 was used
)");
  EXPECT_EQ(section(finished.out, "keywords"), "no keywords in: " + finished.out);
}

TEST(Explain, OffersTheContextToTheHandler) {
  const std::string context = file_of(R"({"root": "/srv", "regex": true})");
  const Finished finished = run(explain({"--context", context, "search", "query=a"}));
  const std::string keywords = section(finished.out, "keywords");
  EXPECT_NE(keywords.find("  regex   true    context\n"), std::string::npos) << keywords;
  EXPECT_NE(keywords.find("  root    \"/srv\"  context\n"), std::string::npos) << keywords;
  EXPECT_EQ(run(explain({"--context", "-", "search", "-"})).status, 2) << "standard input twice";
}

TEST(Explain, ReadsArgumentsFromStandardInput) {
  const Finished finished = run(explain({"search", "limit=7", "-", "q=later"}), R"({"q": "first", "limit": 9})");
  EXPECT_EQ(section(finished.out, "sent"), "  limit  9\n  q      \"later\"\n");
  EXPECT_EQ(run(explain({"search", "-"}), "[1]").status, 2);
  EXPECT_EQ(run(explain({"search", "query"})).status, 2) << "no value";
  EXPECT_EQ(run(explain({"search", "-", "-"})).status, 2) << "standard input twice";
  EXPECT_NE(run(explain({"serch"})).errors.find("no tool is named 'serch': the registry declares search, choose"),
            std::string::npos);
}

/// What the command writes to a terminal.
std::string shown_on_terminal() {
  int controller = -1;
  int terminal = -1;
  char path[64];
  EXPECT_EQ(openpty(&controller, &terminal, path, nullptr, nullptr), 0);
  run(explain({"search"}), "", path);
  std::string shown(4096, ' ');
  const ssize_t size = read(controller, shown.data(), shown.size());
  close(terminal);
  close(controller);
  return shown.substr(0, static_cast<std::size_t>(size));
}

TEST(Explain, ColoursOnlyWhatATerminalShows) {
  unsetenv("NO_COLOR");
  EXPECT_NE(shown_on_terminal().find("\033[31mrefused"), std::string::npos);
  EXPECT_EQ(run(explain({"search"})).out.find('\033'), std::string::npos);
  setenv("NO_COLOR", "1", 1);
  EXPECT_EQ(shown_on_terminal().find('\033'), std::string::npos);
  unsetenv("NO_COLOR");
}

}  // namespace
