// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

TEST(MissingArguments, AreNamedInTheOrderOfTheRegistry) {
  TOOLS.add({.name = "lookup",
             .actions = {{.name = "find"}, {.name = "list"}},
             .params = {{.name = "query", .type = "string", .synonyms = {"q"}, .required = true},
                        {.name = "limit", .type = "integer"},
                        {.name = "path", .type = "string", .required_for = {"find", ""}}}});
  using Action = std::optional<std::string_view>;
  struct Row {
    const char* shows;
    Action action;
    ArgumentMap given;
    std::string expected;
  };
  const Row rows[] = {{"all", "find", {}, "lookup 'find' needs 'query'; lookup 'find' needs 'path'"},
                      {"what the action needs", "list", {}, "lookup 'list' needs 'query'"},
                      {"actions are compared exactly", "Find", {{"query", "a"}}, "nothing"},
                      {"no action", {}, {}, "lookup needs 'query'"},
                      {"an empty action is asked for, but not named", "", {{"query", "a"}}, "lookup needs 'path'"},
                      {"an undeclared action", "other", {}, "lookup 'other' needs 'query'"},
                      {"nothing", "find", {{"path", "b"}, {"query", "a"}}, "nothing"},
                      {"under a synonym", "list", {{"q", "a"}}, "lookup 'list' needs 'query'"},
                      {"what is not needed", "list", {{"query", "a"}, {"limit", nullptr}, {"path", ""}}, "nothing"}};
  for (const Row& row : rows) {
    const auto missing = [&](const ArgumentMap& given) { return missing_arguments("lookup", row.action, given); };
    expect_rows({{row.shows, row.given, row.expected}}, missing);
  }
  EXPECT_EQ(outcome_of([] { return missing_arguments("nosuch", {}, {}); }), "KeyError: no tool is named 'nosuch'");
}

TEST(MissingArguments, AreThoseThatSayNothing) {
  TOOLS.add({.name = "plain", .params = {{.name = "p", .type = "string", .required = true}}});
  TOOLS.add({.name = "blank", .params = {{.name = "p", .type = "string", .required = true, .blank_is_value = true}}});
  const std::vector<Value> blank = {"", " \t\n", "\u00A0", "\u3000\u2028\u0085", std::vector<Value>{}};
  const std::vector<Value> given = {"\u200B",      "\uFEFF", " a ", std::vector<Value>{nullptr},
                                    ArgumentMap{}, false,    0,     0.0};
  for (const Value& value : blank) {
    EXPECT_TRUE(missing_arguments("plain", {}, {{"p", value}})) << quoted_form(value);
    EXPECT_FALSE(missing_arguments("blank", {}, {{"p", value}})) << quoted_form(value);
  }
  for (const Value& value : given) {
    EXPECT_FALSE(missing_arguments("plain", {}, {{"p", value}})) << quoted_form(value);
    EXPECT_FALSE(missing_arguments("blank", {}, {{"p", value}})) << quoted_form(value);
  }
  EXPECT_TRUE(missing_arguments("plain", {}, {{"p", nullptr}}));
  EXPECT_TRUE(missing_arguments("blank", {}, {{"p", nullptr}}));
  EXPECT_TRUE(missing_arguments("blank", {}, {}));
}

}  // namespace
}  // namespace tool_binding
