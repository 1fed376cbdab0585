// SPDX-License-Identifier: MIT
#include "tool_binding/json/registry_file.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tool_binding/json/parse_error.hpp"

namespace tool_binding::json {
namespace {

TEST(RegistryFile, ReadsEveryKey) {
  const auto tools = read_registry(R"({"description": "all", "tools": [
    {"name": "search", "description": "finds",
     "actions": [{"name": "find", "synonyms": ["lookup"], "description": "one"}, {"name": "list"}],
     "default_action": "find",
     "params": [
       {"name": "limit", "type": "integer", "synonyms": ["max_results"], "description": "how many", "minimum": 1,
        "maximum": 99.5, "default": 20, "action_defaults": {"list": 50, "find": null}, "required": true,
        "required_for": ["find"], "blank_is_value": true},
       {"name": "in", "type": "array", "items_type": "string", "enum": ["a", "b"]}],
     "handler": {"description": "h", "parameters": [{"name": "limit", "description": "p"},
       {"name": "more", "kind": "VAR_POSITIONAL"}, {"name": "rest", "kind": "VAR_KEYWORD"}]}}]})");
  ASSERT_EQ(tools.size(), 1U);
  const ToolSpec& tool = tools[0].tool;
  EXPECT_EQ(tool.name(), "search");
  EXPECT_EQ(tool.description(), "finds");
  EXPECT_EQ(tool.default_action(), Text("find"));
  ASSERT_EQ(tool.actions().size(), 2U);
  EXPECT_EQ(tool.actions()[0].synonyms, std::vector<Text>{"lookup"});
  EXPECT_EQ(tool.actions()[0].description, "one");
  ASSERT_EQ(tool.params().size(), 2U);
  const ParamSpec& limit = tool.params()[0];
  EXPECT_EQ(limit.name, "limit");
  EXPECT_EQ(limit.type, "integer");
  EXPECT_EQ(limit.synonyms, std::vector<Text>{"max_results"});
  EXPECT_EQ(limit.description, "how many");
  EXPECT_EQ(limit.minimum, Value(1));
  EXPECT_EQ(limit.maximum, Value(99.5));
  EXPECT_EQ(limit.default_, Value(20));
  EXPECT_EQ(limit.action_defaults, (ArgumentMap{{"list", 50}, {"find", nullptr}}));
  EXPECT_TRUE(limit.required);
  EXPECT_EQ(limit.required_for, std::vector<Text>{"find"});
  EXPECT_TRUE(limit.blank_is_value);
  EXPECT_EQ(tool.params()[1].items_type, Text("string"));
  EXPECT_EQ(tool.params()[1].enum_, (std::vector<Text>{"a", "b"}));
  const auto& parameters = tools[0].handler.signature.parameters;
  ASSERT_EQ(parameters.size(), 3U);
  EXPECT_EQ(parameters[0].name, "limit");
  EXPECT_EQ(parameters[0].kind, Parameter::Kind::NAMED);
  EXPECT_EQ(parameters[1].kind, Parameter::Kind::VAR_POSITIONAL);
  EXPECT_EQ(parameters[2].kind, Parameter::Kind::VAR_KEYWORD);
}

TEST(RegistryFile, ReadsNullAsLeftOut) {
  const auto tools = read_registry(R"({"description": null, "tools": [{"name": "t", "actions": null,
    "default_action": null, "handler": null, "description": null, "params": [{"name": "p", "type": "array",
    "synonyms": null, "items_type": null, "enum": null, "minimum": null, "default": null, "action_defaults": null,
    "required": null, "required_for": null, "blank_is_value": null}]}]})");
  EXPECT_EQ(tools[0].tool.default_action(), std::nullopt);
  EXPECT_EQ(tools[0].tool.params()[0].items_type, std::nullopt);
  EXPECT_FALSE(tools[0].tool.params()[0].required);
  ASSERT_EQ(tools[0].handler.signature.parameters.size(), 1U);
  EXPECT_EQ(tools[0].handler.signature.parameters[0].kind, Parameter::Kind::VAR_KEYWORD);
}

TEST(RegistryFile, TakesFileWithoutToolsAndHandlerWithoutParameters) {
  EXPECT_TRUE(read_registry("{}").empty());
  EXPECT_TRUE(read_registry(R"({"tools": null})").empty());
  EXPECT_TRUE(read_registry(R"({"tools": [{"name": "t", "handler": {}}]})")[0].handler.signature.parameters.empty());
}

std::string refusal(std::string_view text) {
  try {
    (void)read_registry(text);
  } catch (const RegistryError& error) {
    return std::string(error.message());
  }
  return "";
}

struct RefusedRow {
  std::string shows;
  std::string text;
  std::string message;
};

void expect_refusals(const std::vector<RefusedRow>& rows) {
  for (const RefusedRow& row : rows) {
    EXPECT_EQ(refusal(row.text), row.message) << row.shows;
  }
}

/// A file of one tool with these members besides its name.
std::string tool_with(const std::string& members) { return R"({"tools": [{"name": "t", )" + members + "}]}"; }

/// A file of one tool with one text parameter with these members besides.
std::string param_with(const std::string& members) {
  return tool_with(R"("params": [{"name": "p", "type": "string", )" + members + "}]");
}

/// A file of one tool with the actions "list" and "read", and these members besides.
std::string actions_with(const std::string& members) {
  return tool_with(R"("actions": [{"name": "list", "synonyms": ["ls"]}, {"name": "read"}], )" + members);
}

/// A default of twenty keys, and two of them again on the second line.
std::string many_keys() {
  std::string members;
  for (int key = 0; key < 20; ++key) {
    members.append("\"k").append(std::to_string(key)).append("\": 0, ");
  }
  return param_with("\"default\": {" + members + "\n\"k5\": 1, \"k3\": 1}");
}

TEST(RegistryFile, RefusesFaultsOfShape) {
  expect_refusals({
      {"no object", "[]", "line 1: the file: must be an object, not a list"},
      {"unknown key, near", R"({"tolls": []})", "line 1: tolls: is no known key; did you mean 'tools'?"},
      {"unknown key, far", param_with(R"("colour": 1)"), "line 1: tools[0].params[0].colour: is no known key"},
      {"unknown key, odd", R"({"a.\n": 1})", R"(line 1: ['a.\n']: is no known key)"},
      {"missing", R"({"tools": [{}]})", "line 1: tools[0].name: is missing"},
      {"null for a needed key", R"({"tools": [{"name": "t", "params": [{"name": null}]}]})",
       "line 1: tools[0].params[0].name: is missing\nline 1: tools[0].params[0].type: is missing"},
      {"item of the wrong kind", R"({"tools": [5, null]})",
       "line 1: tools[0]: must be an object, not an integer\nline 1: tools[1]: must be an object, not null"},
      {"wrong kinds",
       param_with(R"("synonyms": "a", "enum": ["a", 1], "required": 1, "action_defaults": [], "items_type": 2.5)"),
       "line 1: tools[0].params[0].synonyms: must be a list, not a text\n"
       "line 1: tools[0].params[0].enum[1]: must be a text, not an integer\n"
       "line 1: tools[0].params[0].required: must be true or false, not an integer\n"
       "line 1: tools[0].params[0].action_defaults: must be an object, not a list\n"
       "line 1: tools[0].params[0].items_type: must be a text, not a floating number"},
      {"free text of the wrong kind", R"({"description": {}})", "line 1: description: must be a text, not an object"},
      {"handler", tool_with(R"("handler": {"parameters": [{"name": "a", "kind": "named"}, {"kind": true}]})"),
       "line 1: tools[0].handler.parameters[0].kind: must be NAMED, VAR_POSITIONAL or VAR_KEYWORD, not 'named'; did "
       "you mean 'NAMED'?\n"
       "line 1: tools[0].handler.parameters[1].kind: must be a text, not a boolean\n"
       "line 1: tools[0].handler.parameters[1].name: is missing"},
      {"repeated keys", "{\"tools\": [{\"name\": \"t\",\n \"name\": 5}],\n \"tools\": []}",
       "line 2: tools[0].name: is given twice\nline 3: tools: is given twice"},
      {"repeated keys in free values", param_with(R"("default": [{"a": 1, "b": {"c": 1, "c": 2}}])"),
       "line 1: tools[0].params[0].default[0].b.c: is given twice"},
      {"repeated keys among many", many_keys(),
       "line 2: tools[0].params[0].default.k5: is given twice\nline 2: tools[0].params[0].default.k3: is given twice"},
      {"actions unread do not make references wrong",
       tool_with(R"("actions": [{"nam": "find"}], "default_action": "find")"),
       "line 1: tools[0].actions[0].nam: is no known key; did you mean 'name'?\n"
       "line 1: tools[0].actions[0].name: is missing"},
  });
}

TEST(RegistryFile, RefusesWhatTheRegistryCannotUse) {
  expect_refusals({
      {"type words", param_with(R"("items_type": "text")") + "",
       "line 1: tools[0].params[0].items_type: must be integer, number, boolean, string or array, not 'text'; did you "
       "mean 'string'?"},
      {"type words", tool_with(R"("params": [{"name": "p", "type": "Integer"}])"),
       "line 1: tools[0].params[0].type: must be integer, number, boolean, string or array, not 'Integer'; did you "
       "mean 'integer'?"},
      {"names twice", R"({"tools": [{"name": "t"}, {"name": "T"}, {"name": "t"}]})",
       "line 1: tools[2].name: 't' is declared already at tools[0].name"},
      {"names twice in a tool", tool_with(R"("params": [{"name": "p", "type": "array"}, {"name": "p", "type": "array"}],
                    "actions": [{"name": "a"}, {"name": "a"}, {"name": "A"}],
                    "handler": {"parameters": [{"name": "h"}, {"name": "h", "kind": "VAR_KEYWORD"}]})"),
       "line 1: tools[0].params[1].name: 'p' is declared already at tools[0].params[0].name\n"
       "line 2: tools[0].actions[1].name: 'a' is declared already at tools[0].actions[0].name\n"
       "line 3: tools[0].handler.parameters[1].name: 'h' is declared already at tools[0].handler.parameters[0].name"},
      {"empty names",
       R"({"tools": [{"name": ""}, {"name": "", "params": [{"name": "", "type": "array", "synonyms": [""]}],
           "actions": [{"name": "a", "synonyms": [""]}, {"name": ""}], "handler": {"parameters": [{"name": ""}]}}]})",
       "line 1: tools[0].name: a name must not be empty\nline 1: tools[1].name: a name must not be empty\n"
       "line 1: tools[1].params[0].name: a name must not be empty\n"
       "line 1: tools[1].params[0].synonyms[0]: a name must not be empty\n"
       "line 2: tools[1].actions[1].name: a name must not be empty\n"
       "line 2: tools[1].actions[0].synonyms[0]: a name must not be empty\n"
       "line 2: tools[1].handler.parameters[0].name: a name must not be empty"},
      {"synonyms of parameters",
       tool_with(R"("params": [{"name": "p", "type": "array", "synonyms": ["p", "q", "x", "x", "P"]},
                               {"name": "q", "type": "array", "synonyms": ["x"]}])"),
       "line 1: tools[0].params[0].synonyms[0]: 'p' is declared as a name at tools[0].params[0].name\n"
       "line 1: tools[0].params[0].synonyms[1]: 'q' is declared as a name at tools[0].params[1].name\n"
       "line 2: tools[0].params[1].synonyms[0]: 'x' is a synonym already at tools[0].params[0].synonyms[2]"},
      {"synonyms of actions, which differ by case",
       tool_with(R"("actions": [{"name": "list", "synonyms": ["ls", "List", "read"]}, {"name": "read"},
                                {"name": "find", "synonyms": ["LS", "ls", "get"]}])"),
       "line 1: tools[0].actions[0].synonyms[2]: 'read' is declared as a name at tools[0].actions[1].name\n"
       "line 2: tools[0].actions[2].synonyms[1]: 'ls' is a synonym already at tools[0].actions[0].synonyms[0]"},
      {"undeclared actions", actions_with(R"("default_action": "lst", "params": [{"name": "p", "type": "array",
                       "required_for": ["list", "ls"], "action_defaults": {"read": 1, "write": 2}}])"),
       "line 1: tools[0].default_action: 'lst' is no declared action; did you mean 'list'?\n"
       "line 2: tools[0].params[0].required_for[1]: 'ls' is no declared action; did you mean 'list'?\n"
       "line 2: tools[0].params[0].action_defaults.write: 'write' is no declared action"},
      {"bounds", param_with(R"("minimum": "1", "maximum": [2])"),
       "line 1: tools[0].params[0].minimum: must be a number, not '1'\n"
       "line 1: tools[0].params[0].maximum: must be a number, not [2]"},
      {"a fault of shape hides no neighbour of a longer name", param_with(R"("required": 0, "required_for": ["x"])"),
       "line 1: tools[0].params[0].required: must be true or false, not an integer\n"
       "line 1: tools[0].params[0].required_for[0]: 'x' is no declared action"},
      {"shape and content at once", tool_with("\"params\": [{\"name\": \"p\", \"type\": \"text\",\n\"required\": 0}]"),
       "line 1: tools[0].params[0].type: must be integer, number, boolean, string or array, not 'text'; did you mean "
       "'string'?\n"
       "line 2: tools[0].params[0].required: must be true or false, not an integer"},
  });
}

TEST(RegistryFile, AcceptsInfiniteBoundsAndSharedWordsAcrossTools) {
  EXPECT_EQ(refusal(param_with(R"("minimum": -Infinity, "maximum": 100000000000000000000)")), "");
  EXPECT_EQ(refusal(R"({"tools": [{"name": "a", "actions": [{"name": "x", "synonyms": ["X"]}]},
                                  {"name": "b", "actions": [{"name": "x"}]}]})"),
            "");
}

TEST(RegistryFile, HandsOutItsFaults) {
  const RegistryFile file(
      "{\n\"tools\": [{\"name\": \"\",\n\"params\": [{\n\"name\": \"p\",\n\"type\": \"array\"}]}]}");
  const std::vector<Fault> faults(file.faults().begin(), file.faults().end());
  EXPECT_EQ(faults, (std::vector<Fault>{{Finding::Kind::empty_name, "tools[0].name", "a name must not be empty", 2}}));
  EXPECT_EQ(file.entries()[0].tool.params[0].name, "p");
  EXPECT_EQ(file.line_of("tools[0].params[0].type"), 5U);
  EXPECT_EQ(file.line_of("tools[0].params[0].maximum"), 3U);
  EXPECT_EQ(file.line_of("tools[0].params[10]"), 3U);
  EXPECT_EQ(file.line_of(""), 1U);
}

TEST(RegistryFile, RefusesTextThatIsNoJson) { EXPECT_THROW((void)read_registry(R"({"tools": [}])"), ParseError); }

}  // namespace
}  // namespace tool_binding::json
