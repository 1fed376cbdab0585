// SPDX-License-Identifier: MIT
#include "tool_binding/tool_schemas.hpp"

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

TEST(EffectiveAction, IsTheNamedOneElseTheDefault) {
  const ToolDeclaration files = {.name = "branches",
                                 .actions = {{.name = "list", .synonyms = {"ls"}}, {.name = "read"}},
                                 .default_action = "read"};
  const std::vector<ArgumentsRow> rows = {{"declared", {{"x", 1}, {"action", "list"}}, "'list'"},
                                          {"a synonym", {{"action", " LS "}}, "'list'"},
                                          {"undeclared", {{"action", " Other "}}, "' Other '"},
                                          {"blank", {{"action", ""}}, "''"},
                                          {"no text", {{"action", 5}}, "'read'"},
                                          {"null", {{"action", nullptr}}, "'read'"},
                                          {"nothing", {{"Action", "list"}}, "'read'"}};
  expect_rows(rows, [&](const ArgumentMap& given) { return effective_action(ToolSpec(files), given); });
  expect_rows({{"no default", {}, "None"}, {"no actions", {{"action", "list"}}, "'list'"}},
              [](const ArgumentMap& given) { return effective_action(ToolSpec({.name = "status"}), given); });
  TOOLS.add(files);
  EXPECT_EQ(one_line(effective_action("branches", {})), "'read'");
  EXPECT_EQ(outcome_of([] { return effective_action("nosuch", {}); }), "KeyError: no tool is named 'nosuch'");
}

}  // namespace
}  // namespace tool_binding
