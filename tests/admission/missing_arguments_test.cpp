// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

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
  const Row rows[] = {
      {"all", "find", {}, "lookup 'find' needs 'query'; lookup 'find' needs 'path'"},
      {"what the action needs", "list", {}, "lookup 'list' needs 'query'"},
      {"actions are compared exactly", "Find", {{"query", "a"}}, "nothing"},
      {"no action", {}, {}, "lookup needs 'query'"},
      {"an empty action is asked for, but not named", "", {{"query", "a"}}, "lookup needs 'path'"},
      {"an undeclared action", "other", {}, "lookup 'other' needs 'query'"},
      {"nothing", "find", {{"path", "b"}, {"query", "a"}}, "nothing"},
      {"under a synonym", "list", {{"q", "a"}}, "lookup 'list' needs 'query'"},
      {"what is not needed", "list", {{"query", "a"}, {"limit", nullptr}, {"path", ""}}, "nothing"},
  };
  for (const Row& row : rows) {
    const auto missing = [&](const ArgumentMap& given) { return missing_arguments("lookup", row.action, given); };
    expect_rows({{row.shows, row.given, row.expected}}, missing);
  }
  EXPECT_EQ(outcome_of([] { return missing_arguments("nosuch", {}, {}); }), "KeyError: no tool is named 'nosuch'");
}

TEST(MissingArguments, AreThoseThatSayNothing) {
  TOOLS.add({.name = "plain", .params = {{.name = "p", .type = "string", .required = true}}});
  TOOLS.add({.name = "blank", .params = {{.name = "p", .type = "string", .required = true, .blank_is_value = true}}});
  struct Row {
    Value given;
    bool is_given;
    bool is_given_where_blank_is_a_value;
  };
  const Row rows[] = {
      {nullptr, false, false},
      {"", false, true},
      {" \t\n", false, true},
      {"\u00A0", false, true},
      {"\u3000\u2028\u0085", false, true},
      {"\u200B", true, true},
      {"\uFEFF", true, true},
      {" a ", true, true},
      {std::vector<Value>{}, false, true},
      {std::vector<Value>{nullptr}, true, true},
      {ArgumentMap{}, true, true},
      {false, true, true},
      {0, true, true},
      {0.0, true, true},
  };
  for (const Row& row : rows) {
    const ArgumentMap given = {{"p", row.given}};
    EXPECT_EQ(!missing_arguments("plain", {}, given), row.is_given) << quoted_form(row.given);
    EXPECT_EQ(!missing_arguments("blank", {}, given), row.is_given_where_blank_is_a_value) << quoted_form(row.given);
  }
  EXPECT_TRUE(missing_arguments("blank", {}, {}));
}

}  // namespace
}  // namespace tool_binding
