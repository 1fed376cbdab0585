// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

const Signature any_keyword = {{{.name = "keywords", .kind = Parameter::Kind::VAR_KEYWORD}}};

std::string lines_for(const std::vector<Finding>& findings) {
  std::string lines;
  for (const Finding& finding : findings) {
    lines += finding.place + ": " + finding.words + "\n";
  }
  return lines;
}

std::string warnings_of(const ToolDeclaration& tool, const Signature& signature = any_keyword) {
  return lines_for(registry_warnings(std::vector<RegistryEntry>{{tool, {.signature = signature, .function = {}}}}));
}

TEST(RegistryWarnings, DoubtSynonymsOfActions) {
  EXPECT_EQ(
      warnings_of({.name = "t",
                   .actions = {{.name = "List", .synonyms = {"ls", "LS", " all"}},
                               {.name = "list"},
                               {.name = "read", .synonyms = {"Ls", "get", "LIST"}}}}),
      "tools[0].actions[0].synonyms[2]: ' all' can never be matched: white space around an action is ignored\n"
      "tools[0].actions[2].synonyms[0]: 'Ls' can never be matched: case is ignored, and it is read as the action "
      "'List'\n"
      "tools[0].actions[2].synonyms[2]: 'LIST' can never be matched: case is ignored, and it is read as the action "
      "'List'\n");
  EXPECT_EQ(warnings_of({.name = "t", .actions = {{.name = "a"}, {.name = "b", .synonyms = {"a"}}}}), "")
      << "a synonym that is a declared name is an error";
  EXPECT_EQ(warnings_of({.name = "t", .actions = {{.name = "a", .synonyms = {"s"}}, {.name = "b", .synonyms = {"s"}}}}),
            "")
      << "and so is one that is declared twice";
}

TEST(RegistryWarnings, DoubtHandlers) {
  const ToolDeclaration tool = {.name = "t",
                                .actions = {{.name = "a"}},
                                .params = {{.name = "p", .type = "array"}, {.name = "q", .type = "array"}}};
  EXPECT_EQ(warnings_of(tool, {{{.name = "p"}, {.name = "q", .kind = Parameter::Kind::VAR_POSITIONAL}}}),
            "tools[0].handler: takes neither 'action' nor any keyword\n"
            "tools[0].handler: takes neither 'q' nor any keyword\n");
  EXPECT_EQ(warnings_of(tool, {{{.name = "q"}, {.name = "p"}, {.name = "action"}, {.name = "engines"}}}), "");
}

}  // namespace
}  // namespace tool_binding
