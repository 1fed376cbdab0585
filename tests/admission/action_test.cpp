// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

std::vector<ActionSpec> list_and_read() { return {{.name = "list", .synonyms = {"ls", "Dir"}}, {.name = "read"}}; }

TEST(Action, IsReadFromItsNameOrAnother) {
  expect_admitted(
      ToolSpec({.name = "files", .actions = list_and_read(), .params = {{.name = "path", .type = "string"}}}),
      {
          {"its declared name, at its place", {{"path", "a"}, {"action", "read"}}, "{path: 'a', action: 'read'}"},
          {"before another argument", {{"action", "list"}, {"path", "a"}}, "{action: 'list', path: 'a'}"},
          {"a synonym", {{"action", "dir"}}, "{action: 'list'} | the action 'dir' was read as 'list' | alias"},
          {"white space and case",
           {{"action", " READ\n"}},
           "{action: 'read'} | the action ' READ\n' was read as 'read' | alias"},
          {"unknown, one near",
           {{"action", "lst"}},
           "ArgumentError: Unknown action 'lst' for files: one of list, read. Did you mean 'list'?"},
          {"near names are compared as they were sent",
           {{"action", "REID"}},
           "ArgumentError: Unknown action 'REID' for files: one of list, read"},
          {"a synonym is no near name",
           {{"action", "Di"}},
           "ArgumentError: Unknown action 'Di' for files: one of list, read"},
          {"no text",
           {{"action", std::vector<Value>{"list"}}},
           "ArgumentError: Unknown action '['list']' for files: one of list, read. Did you mean 'list'?"},
          {"false is no action left out",
           {{"action", false}},
           "ArgumentError: Unknown action 'False' for files: one of list, read"},
          {"none, and no default", {}, "ArgumentError: files needs an 'action': one of list, read"},
          {"blank, and no default", {{"action", " "}}, "ArgumentError: files needs an 'action': one of list, read"},
          {"refused once only, among other problems",
           {{"x", 1}, {"action", 5}},
           "ArgumentError: Unknown parameter 'x' for files. It takes: path.; Unknown action '5' for files: one of "
           "list, read"},
      });
}

TEST(Action, IsTheDefaultWhereNoneIsNamed) {
  expect_admitted(
      ToolSpec({.name = "pages",
                .actions = list_and_read(),
                .default_action = "read",
                .params = {{.name = "path", .type = "string", .required_for = {"read"}}}}),
      {
          {"the last entry, without a note", {{"path", "a"}}, "{path: 'a', action: 'read'}"},
          {"for a blank or null action too", {{"action", "\t"}, {"path", "a"}}, "{path: 'a', action: 'read'}"},
          {"its needs are checked", {{"action", nullptr}}, "ArgumentError: pages 'read' needs 'path'"},
          {"not where another is named", {{"action", "list"}}, "{action: 'list'}"},
          {"not where the named one is refused",
           {{"action", "readme"}},
           "ArgumentError: Unknown action 'readme' for pages: one of list, read. Did you mean 'read'?"},
      });
}

TEST(Action, IsRefusedByAToolThatTakesNone) {
  expect_admitted(ToolSpec({.name = "status"}),
                  {{"text", {{"action", "list"}}, "ArgumentError: status takes no 'action'"},
                   {"no text", {{"action", 0}}, "ArgumentError: status takes no 'action'"},
                   {"none", {}, "{}"}});
  expect_admitted(ToolSpec({.name = "odd",
                            .default_action = "run",
                            .params = {{.name = "a", .type = "string", .required_for = {"run"}}}}),
                  {{"a default without actions", {{"a", "b"}}, "{a: 'b', action: 'run'}"},
                   {"is what is checked", {}, "ArgumentError: odd 'run' needs 'a'"},
                   {"unless refused", {{"action", "x"}}, "ArgumentError: odd takes no 'action'"}});
}

TEST(Action, SharesItsNameWithAParameter) {
  expect_admitted(
      ToolSpec({.name = "files",
                .actions = list_and_read(),
                .default_action = "list",
                .params = {{.name = "path", .type = "string", .required_for = {"read", "other"}},
                           {.name = "action", .type = "string", .synonyms = {"verb"}}}}),
      {
          {"the parameter's synonym names the action that is run",
           {{"verb", "other"}},
           "ArgumentError: files 'other' needs 'path'"},
          {"and is stored as it came", {{"verb", "ls"}}, "{action: 'ls'} | 'verb' was read as 'action' | alias"},
          {"the action first",
           {{"action", "list"}, {"verb", "read"}},
           "{action: 'list'} | 'verb' was left out: 'action' was given too | alias"},
          {"the synonym first",
           {{"verb", "read"}, {"path", "a"}, {"action", "list"}},
           "{action: 'list', path: 'a'} | 'verb' was read as 'action' | alias"},
          {"the synonym's value stays where the action is refused",
           {{"verb", "read"}, {"action", "x"}},
           "ArgumentError: Unknown action 'x' for files: one of list, read; files 'read' needs 'path'"},
          {"a refused action is not given: the synonym is read",
           {{"action", "x"}, {"verb", "read"}},
           "ArgumentError: Unknown action 'x' for files: one of list, read; files 'read' needs 'path'"},
      });
  expect_admitted(ToolSpec({.name = "steps",
                            .params = {{.name = "action", .type = "integer", .synonyms = {"step"}},
                                       {.name = "why", .type = "string", .required_for = {"5"}}}}),
                  {{"a number, without actions", {{"step", "5"}}, "ArgumentError: steps '5' needs 'why'"},
                   {"which is stored as one", {{"step", "6"}}, "{action: 6} | 'step' was read as 'action' | alias"},
                   {"but not by its declared name", {{"action", 6}}, "ArgumentError: steps takes no 'action'"}});
}

}  // namespace
}  // namespace tool_binding
