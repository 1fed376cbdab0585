// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

void expect_bound(const ToolSpec& tool, const std::vector<ArgumentsRow>& rows) {
  expect_rows(rows, [&](const ArgumentMap& given) { return bind_arguments(tool, given); });
}

ToolDeclaration files_declaration() {
  return {.name = "files",
          .actions = {{.name = "list", .synonyms = {"ls"}}, {.name = "read"}},
          .default_action = "list",
          .params = {{.name = "path", .type = "string", .synonyms = {"p"}, .default_ = "."},
                     {.name = "limit", .type = "integer", .default_ = 5, .action_defaults = {{"list", 100}}},
                     {.name = "tags", .type = "array", .default_ = std::vector<Value>{"a"}},
                     {.name = "note", .type = "string"}}};
}

TEST(BindArguments, GivesEveryParameterAValueInTheRegistrysOrder) {
  expect_bound(ToolSpec(files_declaration()),
               {
                   {"defaults, none where it depends on the action",
                    {},
                    "{action: 'list', path: '.', limit: None, tags: ['a'], note: None}"},
                   {"what is given, in another order",
                    {{"note", "n"}, {"limit", 7}, {"path", "a"}, {"action", "read"}, {"tags", std::vector<Value>{}}},
                    "{action: 'read', path: 'a', limit: 7, tags: [], note: 'n'}"},
                   {"null is bound, but no action",
                    {{"path", nullptr}, {"action", nullptr}, {"tags", nullptr}},
                    "{action: 'list', path: None, limit: None, tags: None, note: None}"},
                   {"nothing undeclared",
                    {{"p", "a"}, {"Path", "b"}, {"repo", "c"}, {"", 1}},
                    "{action: 'list', path: '.', limit: None, tags: ['a'], note: None}"},
                   {"nothing is checked or converted",
                    {{"limit", "x"}, {"path", 5}, {"action", "other"}},
                    "{action: 'other', path: 5, limit: 'x', tags: ['a'], note: None}"},
                   {"the action is the one that is run",
                    {{"action", "LS"}},
                    "{action: 'list', path: '.', limit: None, tags: ['a'], note: None}"},
               });
}

TEST(BindArguments, BindsTheActionWhereTheToolHasActions) {
  expect_bound(ToolSpec({.name = "status", .default_action = "x", .params = {{.name = "path", .type = "string"}}}),
               {{"none", {{"action", "list"}, {"path", "a"}}, "{path: 'a'}"}});
  expect_bound(ToolSpec({.name = "bare"}), {{"nothing at all", {{"action", "list"}, {"x", 1}}, "{}"}});
  ToolDeclaration files = files_declaration();
  files.default_action.reset();
  files.params.resize(1);
  expect_bound(ToolSpec(files), {{"none by default", {}, "{action: None, path: '.'}"},
                                 {"no text", {{"action", 5}}, "{action: None, path: '.'}"}});
  files.default_action = "list";
  files.params.push_back({.name = "action", .type = "string", .default_ = "own"});
  expect_bound(ToolSpec(files),
               {{"a parameter of its name, in its place", {{"action", "ls"}}, "{action: 'ls', path: '.'}"},
                {"with its own default", {}, "{action: 'own', path: '.'}"},
                {"and null when given", {{"action", nullptr}}, "{action: None, path: '.'}"}});
  files.actions.clear();
  expect_bound(ToolSpec(files), {{"without actions: an ordinary one", {}, "{path: '.', action: 'own'}"}});
}

TEST(BindArguments, ReplacesARepeatedParameterInItsPlace) {
  const ToolSpec tool({.name = "twice",
                       .params = {{.name = "a", .type = "string", .default_ = 1},
                                  {.name = "b", .type = "string", .default_ = 2},
                                  {.name = "a", .type = "string", .default_ = 3}}});
  expect_bound(tool, {{"the later default", {}, "{a: 3, b: 2}"}, {"what is given", {{"a", 4}}, "{a: 4, b: 2}"}});
}

TEST(BindArguments, FindsAToolByItsName) {
  TOOLS.add(files_declaration());
  expect_rows({{"a tool", {{"path", "a"}}, "{action: 'list', path: 'a', limit: None, tags: ['a'], note: None}"}},
              [](const ArgumentMap& given) { return bind_arguments("files", given); });
  expect_rows({{"no tool", {}, "KeyError: no tool is named 'nosuch'"}},
              [](const ArgumentMap& given) { return bind_arguments("nosuch", given); });
}

TEST(BindArguments, CopiesNoContent) {
  const ArgumentMap given = {{"path", std::string(1000, 'a')}};
  const ToolSpec tool(files_declaration());
  const ArgumentMap bound = bind_arguments(tool, given);
  EXPECT_EQ(bound.find("path")->text().data(), given.find("path")->text().data());
  EXPECT_EQ(bound.find("tags")->list().data(), tool.param("tags")->default_.list().data());
}

}  // namespace
}  // namespace tool_binding
