// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

// Here stands what no row of a file can say.
namespace tool_binding {
namespace {

TEST(BindArguments, FindsAToolByItsName) {
  TOOLS.add({.name = "found", .params = {{.name = "p", .type = "string"}, {.name = "n", .type = "integer"}}});
  const auto bound = [](std::string_view tool) {
    return outcome_of([&] { return bind_arguments(tool, {{"p", "a"}}); });
  };
  EXPECT_EQ(bound("found"), "{p: 'a', n: None}");
  EXPECT_EQ(bound("nosuch"), "KeyError: no tool is named 'nosuch'");
  EXPECT_EQ(outcome_of([] { return action_default("it's", "p", ""); }), "KeyError: no tool is named 'it's'");
}

TEST(BindArguments, CopiesNoContent) {
  const ArgumentMap given = {{"p", std::string(1000, 'a')}};
  const ToolSpec tool({.name = "t",
                       .params = {{.name = "p", .type = "string"},
                                  {.name = "l", .type = "array", .default_ = std::vector<Value>{"a"}}}});
  const ArgumentMap bound = bind_arguments(tool, given);
  const char* const content = given.find("p")->text().data();
  EXPECT_EQ(bound.find("p")->text().data(), content);
  EXPECT_EQ(bind_arguments(tool, ArgumentMap(given)).find("p")->text().data(), content);
  EXPECT_EQ(bound.find("l")->list().data(), tool.param("l")->default_.list().data());
}

}  // namespace
}  // namespace tool_binding
