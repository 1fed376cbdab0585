// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <cstdlib>

#include "command.hpp"
#include "support/rows.hpp"
#include "tool_binding/json/reader.hpp"

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
    return "no " + heading + "\n";
  }
  const std::size_t first = begin + heading.size() + 3;
  return page.substr(first, page.find("\n\n", first) + 1 - first);
}

[[maybe_unused]] const bool explain_rows = tool_binding::test_rows("explain", [](const tool_binding::Row& row) {
  const tool_binding::Value given = tool_binding::json::read(row.given);
  std::vector<std::string> arguments;
  for (const tool_binding::Value& argument : given.list()) {
    arguments.emplace_back(argument.text());
  }
  const Finished finished = run(explain(arguments), row.setting("input"));
  EXPECT_EQ(section(finished.out, row.setting("section")), row.expected + "\n") << finished.out;
  const bool is_admitted = section(finished.out, "problems") == "no problems\n";
  EXPECT_TRUE(finished.out.starts_with(arguments[0] + (is_admitted ? ": admitted\n" : ": refused\n")));
  EXPECT_EQ(finished.status, is_admitted ? 0 : 1);
});

TEST(Explain, OffersTheContextToTheHandler) {
  const std::string context = file_of(R"({"root": "/srv", "regex": true})");
  const Finished finished = run(explain({"--context", context, "search", "query=a"}));
  const std::string keywords = section(finished.out, "keywords");
  EXPECT_NE(keywords.find("  regex   true    context\n"), std::string::npos) << keywords;
  EXPECT_NE(keywords.find("  root    \"/srv\"  context\n"), std::string::npos) << keywords;
  EXPECT_EQ(run(explain({"--context", "-", "search", "-"})).status, 2) << "standard input twice";
}

TEST(Explain, RefusesArgumentsThatItCannotRead) {
  EXPECT_EQ(run(explain({"search", "-"}), "[1]").status, 2);
  EXPECT_EQ(run(explain({"search", "query"})).status, 2) << "no value";
  EXPECT_EQ(run(explain({"search", "-", "-"})).status, 2) << "standard input twice";
  EXPECT_NE(run(explain({"serch"})).errors.find("no tool is named 'serch'; did you mean 'search'?"), std::string::npos);
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
  setenv("TERM", "xterm", 1);
  EXPECT_NE(shown_on_terminal().find("\033[31mrefused"), std::string::npos);
  EXPECT_EQ(run(explain({"search"})).out.find('\033'), std::string::npos);
  setenv("NO_COLOR", "1", 1);
  EXPECT_EQ(shown_on_terminal().find('\033'), std::string::npos);
  unsetenv("NO_COLOR");
  setenv("TERM", "dumb", 1);
  EXPECT_EQ(shown_on_terminal().find('\033'), std::string::npos);
}

}  // namespace
