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
  EXPECT_THROW((void)tools["files "], UnknownToolError) << "which an unknown type word is not";
  EXPECT_EQ(name_in(tools, "a tool whose name is lonG"), "KeyError: no tool is named 'a tool whose name is lonG'");
}

TEST(ToolTable, FindsEachOfManyTools) {
  ToolTable tools;
  for (int number = 0; number < 1000; ++number) {
    tools.add({.name = "a tool whose name is long " + std::to_string(number)});
  }
  for (int number = 0; number < 2000; ++number) {
    const ToolSpec* const tool = tools.find("a tool whose name is long " + std::to_string(number));
    EXPECT_EQ(tool, number < 1000 ? &tools.all()[std::size_t(number)] : nullptr) << number;
  }
}

TEST(ToolTable, RefusesANameThatItHolds) {
  ToolTable tools;
  tools.add({.name = "search", .description = "first"});
  const auto add = [&] { return tools.add({.name = "search"}), Value(); };
  EXPECT_EQ(outcome_of(add), "ValueError: a tool named 'search' is declared already");
  EXPECT_EQ(tools["search"].description(), "first");
  EXPECT_EQ(tools.all().size(), 1U);
}

}  // namespace
}  // namespace tool_binding
