// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

void expect_bound(const ToolSpec& tool, const std::vector<ArgumentsRow>& rows) {
  expect_rows(rows, [&](const ArgumentMap& given) {
    ArgumentMap bound = bind_arguments(tool, given);
    EXPECT_EQ(bind_arguments(tool, ArgumentMap(given)), bound) << "arguments given away";
    return bound;
  });
}

ToolDeclaration files_declaration() {
  return {.name = "files",
          .actions = {{.name = "list", .synonyms = {"ls"}}, {.name = "read"}},
          .default_action = "list",
          .params = {{.name = "p", .type = "string", .synonyms = {"path"}, .default_ = "."},
                     {.name = "n", .type = "integer", .default_ = 5, .action_defaults = {{"list", 100}}},
                     {.name = "l", .type = "array", .default_ = std::vector<Value>{"a"}},
                     {.name = "s", .type = "string"}}};
}

TEST(BindArguments, GivesEveryParameterAValueInTheRegistrysOrder) {
  const std::string defaults = "{action: 'list', p: '.', n: None, l: ['a'], s: None}";
  const std::vector<ArgumentsRow> rows = {
      {"defaults, none where it depends on the action", {}, defaults},
      {"what is given, in another order",
       {{"s", "b"}, {"n", 7}, {"p", "a"}, {"action", "read"}, {"l", std::vector<Value>{}}},
       "{action: 'read', p: 'a', n: 7, l: [], s: 'b'}"},
      {"a null", {{"p", nullptr}, {"l", nullptr}}, "{action: 'list', p: None, n: None, l: None, s: None}"},
      {"but no null action", {{"action", nullptr}}, defaults},
      {"nothing undeclared", {{"path", "a"}, {"P", "b"}, {"repo", "c"}, {"", 1}}, defaults},
      {"as it is", {{"n", "x"}, {"p", 5}, {"action", "b"}}, "{action: 'b', p: 5, n: 'x', l: ['a'], s: None}"},
      {"the action that is run", {{"action", "LS"}}, defaults}};
  expect_bound(ToolSpec(files_declaration()), rows);
}

TEST(BindArguments, BindsTheActionWhereTheToolHasActions) {
  ToolDeclaration files = files_declaration();
  files.params.resize(1);
  files.default_action.reset();
  expect_bound(ToolSpec(files),
               {{"none", {}, "{action: None, p: '.'}"}, {"no text", {{"action", 5}}, "{action: None, p: '.'}"}});
  files.default_action = "list";
  files.params.push_back({.name = "action", .type = "string", .default_ = "own"});
  expect_bound(ToolSpec(files), {{"a parameter of its name", {{"action", "ls"}}, "{action: 'ls', p: '.'}"},
                                 {"with its own default", {}, "{action: 'own', p: '.'}"},
                                 {"and null when given", {{"action", nullptr}}, "{action: None, p: '.'}"}});
  files.actions.clear();
  expect_bound(ToolSpec(files), {{"without actions, in its own place", {}, "{p: '.', action: 'own'}"}});
  files.params.pop_back();
  expect_bound(ToolSpec(files), {{"neither", {{"action", "list"}, {"p", "a"}}, "{p: 'a'}"}});
  files.params.clear();
  expect_bound(ToolSpec(files), {{"nothing at all", {{"action", "list"}, {"x", 1}}, "{}"}});
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
  const auto bound = [](std::string_view tool) {
    return outcome_of([&] { return bind_arguments(tool, {{"p", "a"}}); });
  };
  EXPECT_EQ(bound("files"), "{action: 'list', p: 'a', n: None, l: ['a'], s: None}");
  EXPECT_EQ(bound("nosuch"), "KeyError: no tool is named 'nosuch'");
}

TEST(BindArguments, CopiesNoContent) {
  const ArgumentMap given = {{"p", std::string(1000, 'a')}};
  const ToolSpec tool(files_declaration());
  const ArgumentMap bound = bind_arguments(tool, given);
  const char* const content = given.find("p")->text().data();
  EXPECT_EQ(bound.find("p")->text().data(), content);
  EXPECT_EQ(bind_arguments(tool, ArgumentMap(given)).find("p")->text().data(), content);
  EXPECT_EQ(bound.find("l")->list().data(), tool.param("l")->default_.list().data());
}

}  // namespace
}  // namespace tool_binding
