// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

TEST(ActionDefault, IsTheActionsOwnElseTheParameters) {
  TOOLS.add({.name = "pages",
             .actions = {{.name = "list", .synonyms = {"ls"}}},
             .params = {{.name = "limit",
                         .type = "integer",
                         .synonyms = {"max"},
                         .default_ = 5,
                         .action_defaults = {{"list", 100}, {"read", nullptr}, {"find", 1}, {"find", 2}}},
                        {.name = "path", .type = "string", .default_ = "."},
                        {.name = "note", .type = "string"}}});
  struct Row {
    const char* shows;
    const char* tool;
    const char* name;
    const char* action;
    const char* expected;
  };
  const Row rows[] = {
      {"the action's", "pages", "limit", "list", "100"},
      {"the action's null", "pages", "limit", "read", "None"},
      {"the later of two", "pages", "limit", "find", "2"},
      {"the parameter's", "pages", "limit", "other", "5"},
      {"actions are compared exactly", "pages", "limit", "ls", "5"},
      {"a synonym of the parameter", "pages", "max", "list", "100"},
      {"one that does not depend on the action", "pages", "path", "list", "'.'"},
      {"none", "pages", "note", "list", "None"},
      {"no such parameter", "pages", "Limit", "list", "LookupError: the registry's pages tool declares no 'Limit'"},
      {"a quote in its name", "pages", "it's", "", "LookupError: the registry's pages tool declares no \"it's\""},
      {"both quotes, and more to escape", "pages", "'\"\\\n", "list",
       R"(LookupError: the registry's pages tool declares no '\'"\\\n')"},
      {"no such tool", "it's", "limit", "list", "KeyError: no tool is named 'it's'"}};
  for (const Row& row : rows) {
    EXPECT_EQ(outcome_of([&] { return action_default(row.tool, row.name, row.action); }), row.expected) << row.shows;
  }
}

}  // namespace
}  // namespace tool_binding
