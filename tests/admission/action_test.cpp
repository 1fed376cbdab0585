// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

const std::vector<ActionSpec> list_and_read = {{.name = "list", .synonyms = {"ls", "Dir"}}, {.name = "read"}};
const std::string unknown = "refused: Unknown action ";

TEST(Action, IsReadFromItsNameOrAnother) {
  const std::string one_of = "' for t: one of list, read";
  const std::vector<ArgumentsRow> rows = {
      {"its declared name, at its place", {{"p", "a"}, {"action", "read"}}, "{p: 'a', action: 'read'}"},
      {"before another argument", {{"action", "list"}, {"p", "a"}}, "{action: 'list', p: 'a'}"},
      {"a synonym", {{"action", "dir"}}, "{action: 'list'} | the action 'dir' was read as 'list' | alias"},
      {"in any case", {{"action", " READ "}}, "{action: 'read'} | the action ' READ ' was read as 'read' | alias"},
      {"unknown, one near", {{"action", "lst"}}, unknown + "'lst" + one_of + ". Did you mean 'list'?"},
      {"near names are compared as sent", {{"action", "REID"}}, unknown + "'REID" + one_of},
      {"a synonym is no near name", {{"action", "Di"}}, unknown + "'Di" + one_of},
      {"no text", {{"action", std::vector<Value>{"lis"}}}, unknown + "'['lis']" + one_of},
      {"no text, one near",
       {{"action", std::vector<Value>{"list"}}},
       unknown + "'['list']" + one_of + ". Did you mean 'list'?"},
      {"false is not left out", {{"action", false}}, unknown + "'False" + one_of},
      {"none, and no default", {}, "refused: t needs an 'action': one of list, read"},
      {"blank, and no default", {{"action", " "}}, "refused: t needs an 'action': one of list, read"},
      {"one problem in its place",
       {{"x", 1}, {"action", 5}, {"y", 1}},
       "refused: Unknown parameter 'x' for t. It takes: p.; Unknown action '5' for t: one of list, read; Unknown "
       "parameter 'y' for t. It takes: p."}};
  expect_admitted(ToolSpec({.name = "t", .actions = list_and_read, .params = {{.name = "p", .type = "string"}}}), rows);
}

TEST(Action, IsTheDefaultWhereNoneIsNamed) {
  const ParamSpec param = {.name = "p", .type = "string", .required_for = {"read"}};
  const std::vector<ArgumentsRow> rows = {
      {"the last entry, without a note", {{"p", "a"}}, "{p: 'a', action: 'read'}"},
      {"for a blank action too", {{"action", "\t"}, {"p", "a"}}, "{p: 'a', action: 'read'}"},
      {"its needs are checked", {{"action", nullptr}}, "refused: t 'read' needs 'p'"},
      {"not where another is named", {{"action", "list"}}, "{action: 'list'}"},
      {"not where one is refused", {{"action", "x"}}, unknown + "'x' for t: one of list, read"}};
  expect_admitted(ToolSpec({.name = "t", .actions = list_and_read, .default_action = "read", .params = {param}}), rows);
  expect_admitted(ToolSpec({.name = "t", .default_action = "read", .params = {param}}),
                  {{"a default without actions", {{"p", "b"}}, "{p: 'b', action: 'read'}"},
                   {"its needs", {}, "refused: t 'read' needs 'p'"},
                   {"are not checked where one is refused", {{"action", "x"}}, "refused: t takes no 'action'"}});
  expect_admitted(ToolSpec({.name = "t"}), {{"no text", {{"action", 0}}, "refused: t takes no 'action'"}});
}

TEST(Action, SharesItsNameWithAParameter) {
  const std::string both = unknown + "'x' for t: one of list, read; t 'read' needs 'p'";
  const std::string left_out = " | 'verb' was left out: 'action' was given too | alias";
  const std::vector<ArgumentsRow> rows = {
      {"its synonym names the action that is run", {{"verb", "other"}}, "refused: t 'other' needs 'p'"},
      {"stored as it came", {{"verb", "ls"}}, "{action: 'ls'} | 'verb' was read as 'action' | alias"},
      {"action, synonym", {{"action", "list"}, {"verb", "read"}}, "{action: 'list'}" + left_out},
      {"synonym, action",
       {{"verb", "read"}, {"p", "a"}, {"action", "list"}},
       "{action: 'list', p: 'a'} | 'verb' was read as 'action' | alias"},
      {"synonym, refused action", {{"verb", "read"}, {"action", "x"}}, both},
      {"refused action, synonym", {{"action", "x"}, {"verb", "read"}}, both}};
  const ParamSpec param = {.name = "p", .type = "string", .required_for = {"read", "other", "5"}};
  const ParamSpec action = {.name = "action", .type = "string", .synonyms = {"verb"}};
  expect_admitted(
      ToolSpec({.name = "t", .actions = list_and_read, .default_action = "list", .params = {param, action}}), rows);
  const ParamSpec number = {.name = "action", .type = "integer", .synonyms = {"step"}};
  expect_admitted(ToolSpec({.name = "t", .params = {param, number}}),
                  {{"a number, without actions", {{"step", "5"}}, "refused: t '5' needs 'p'"},
                   {"stored as one", {{"step", "6"}}, "{action: 6} | 'step' was read as 'action' | alias"},
                   {"but not by its declared name", {{"action", 6}}, "refused: t takes no 'action'"}});
}

}  // namespace
}  // namespace tool_binding
