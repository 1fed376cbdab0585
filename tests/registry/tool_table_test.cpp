// SPDX-License-Identifier: MIT

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

std::string name_in(const ToolTable& tools, std::string_view name) {
  return outcome_of([&] { return Value(tools[name].name()); });
}

TEST(ToolTable, HoldsToolsInDeclaredOrder) {
  ToolTable tools;
  EXPECT_EQ(name_in(tools, "search"), "KeyError: no tool is named 'search'");
  EXPECT_TRUE(tools.find("search") == nullptr && tools.all().empty());
  for (const char* name : {"search", "files", "a tool whose name is long", "abc", "abd", "abe", "abf", "abg", "abh"}) {
    tools.add({.name = name});
  }
  EXPECT_EQ(tools.all().size(), 9U);
  for (const ToolSpec& tool : tools.all()) {
    EXPECT_EQ(&tools[tool.name()], &tool);
  }
  EXPECT_EQ(tools.all()[2].name(), "a tool whose name is long");
  EXPECT_EQ(name_in(tools, "Search"), "KeyError: no tool is named 'Search'");
  EXPECT_EQ(name_in(tools, "a tool whose name is lonG"), "KeyError: no tool is named 'a tool whose name is lonG'");
}

TEST(ToolTable, RefusesANameThatItHolds) {
  ToolTable tools;
  tools.add({.name = "search", .description = "first"});
  EXPECT_EQ(outcome_of([&] {
              tools.add({.name = "search"});
              return Value();
            }),
            "ValueError: a tool named 'search' is declared already");
  EXPECT_EQ(tools["search"].description(), "first");
  EXPECT_EQ(tools.all().size(), 1U);
}

TEST(Constants, AreSpelledAsRequestsDo) {
  EXPECT_EQ(ACTION_PARAM, "action");
  EXPECT_EQ(REPO_ROOT_ARGUMENT, "repo_root");
}

}  // namespace
}  // namespace tool_binding
