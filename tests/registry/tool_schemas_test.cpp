// SPDX-License-Identifier: MIT
#include "tool_binding/tool_schemas.hpp"

#include <gtest/gtest.h>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

TEST(EffectiveAction, IsTheNamedOneElseTheDefault) {
  const ToolDeclaration files = {
      .name = "files", .actions = {{.name = "list", .synonyms = {"ls"}}, {.name = "read"}}, .default_action = "read"};
  const ToolSpec tool(files);
  expect_rows(
      {
          {"declared", {{"x", 1}, {"action", "list"}}, "'list'"},
          {"a synonym", {{"action", " LS "}}, "'list'"},
          {"undeclared", {{"action", " Other "}}, "' Other '"},
          {"blank", {{"action", ""}}, "''"},
          {"no text", {{"action", 5}}, "'read'"},
          {"null", {{"action", nullptr}}, "'read'"},
          {"nothing", {{"Action", "list"}}, "'read'"},
      },
      [&](const ArgumentMap& given) { return effective_action(tool, given); });
  expect_rows({{"no default", {}, "None"}, {"no actions", {{"action", "list"}}, "'list'"}},
              [](const ArgumentMap& given) { return effective_action(ToolSpec({.name = "status"}), given); });
  TOOLS.add(files);
  EXPECT_EQ(one_line(effective_action("files", {})), "'read'");
  EXPECT_EQ(outcome_of([] { return effective_action("nosuch", {}); }), "KeyError: no tool is named 'nosuch'");
}

}  // namespace
}  // namespace tool_binding
