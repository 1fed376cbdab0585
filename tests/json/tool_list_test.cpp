// SPDX-License-Identifier: MIT
#include "tool_binding/json/tool_list.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::json {
namespace {

struct Row {
  const char* shows;
  std::string given;
  std::string expected;
};

TEST(InputSchema, SaysOfAParameterWhatAdmissionMakesOfIt) {
  const std::vector<Row> rows = {
      {"in order",
       R"("type": "number", "description": "d", "default": 1.5, "maximum": 2, "minimum": 1, "synonyms": ["q"])",
       R"({"type": "number", "description": "d", "minimum": 1, "maximum": 2, "default": 1.5})"},
      {"a value of an enumeration is text",
       R"("type": "integer", "enum": ["1", "2", "1"], "minimum": 1, "default": "2")",
       R"({"type": "string", "enum": ["1", "2"], "default": "2"})"},
      {"so is an item", R"("type": "array", "enum": ["a"])",
       R"({"type": "array", "items": {"type": "string", "enum": ["a"]}})"},
      {"items as they come", R"("type": "array", "items_type": "integer", "default": [1])",
       R"({"type": "array", "default": [1]})"},
      {"a fraction is cut from an integer's bound", R"("type": "integer", "minimum": 0.5, "maximum": 9.5)",
       R"({"type": "integer", "minimum": 0, "maximum": 9})"},
      {"a wide bound is rounded as a number's", R"("type": "number", "minimum": 9007199254740993)",
       R"({"type": "number", "minimum": 9007199254740992.0})"},
      {"no finite bound", R"("type": "number", "minimum": -Infinity, "maximum": NaN)", R"({"type": "number"})"},
      {"crossed bounds", R"("type": "integer", "minimum": 5, "maximum": 4)", R"({"type": "integer"})"},
      {"bounds of a text", R"("type": "string", "minimum": 5)", R"({"type": "string"})"},
      {"a default that depends on the action", R"("type": "integer", "default": 1, "action_defaults": {"a": 2})",
       R"({"type": "integer"})"},
      {"a default that JSON has no words for", R"("type": "array", "default": [{"a": [NaN]}])", R"({"type": "array"})"},
  };
  for (const Row& row : rows) {
    const auto tools = read_registry(
        R"({"tools": [{"name": "t", "actions": [{"name": "a"}], "params": [{"name": "p", )" + row.given + "}]}]}");
    const Value schema = input_schema(tools[0].tool);
    EXPECT_EQ(write(*schema.mapping().find("properties")->mapping().find("p")), row.expected) << row.shows;
  }
}

TEST(InputSchema, RequiresWhatCallsAndActionsNeed) {
  const auto tools = read_registry(R"({"tools": [
    {"name": "t", "actions": [{"name": "a", "description": "first"}, {"name": "b"}, {"name": "c", "synonyms": ["d"]}],
     "default_action": "a",
     "params": [{"name": "p", "type": "string", "required": true, "required_for": ["a"]},
                {"name": "q", "type": "string", "required_for": ["c", "a"]},
                {"name": "repo", "type": "string", "required": true}]},
    {"name": "u", "actions": [{"name": "a"}], "params": [{"name": "p", "type": "string", "required": true}]}]})");
  EXPECT_EQ(
      write(advertised_tool(tools[0].tool)),
      R"({"name": "t", "description": "", "inputSchema": {"type": "object", "properties": {"action": {"type": "string", )"
      R"("description": "a: first", "enum": ["a", "b", "c"], "default": "a"}, "p": {"type": "string"}, )"
      R"("q": {"type": "string"}}, "required": ["p"], "allOf": [)"
      R"({"if": {"properties": {"action": {"const": "a"}}}, "then": {"required": ["q"]}}, )"
      R"({"if": {"properties": {"action": {"const": "c"}}, "required": ["action"]}, "then": {"required": ["q"]}}], )"
      R"("additionalProperties": false}})");
  EXPECT_EQ(write(*input_schema(tools[1].tool).mapping().find("required")), R"(["action", "p"])");
}

/// The first parameter that comes of a property "p", or what stands where none does; and the remarks on it.
std::string imported(const std::string& property, Unsayable unsayable) {
  const ImportedTools tools =
      import_tools(R"([{"name": "t", "inputSchema": {"properties": {"p": )" + property + "}}}]", unsayable);
  std::string lines = tools.entries.empty() ? "left out" : "";
  if (!tools.entries.empty()) {
    const Value registry = registry_value(tools.entries);
    lines = write(registry.mapping().find("tools")->list()[0].mapping().find("params")->list()[0]);
  }
  for (const Remark& remark : tools.remarks) {
    const std::string_view within = std::string_view("[0].inputSchema.properties.p");
    lines += "\n" + remark.place.substr(std::min(within.size(), remark.place.size())) + ": " + remark.words;
  }
  return lines;
}

void expect_imported(const std::vector<Row>& rows, Unsayable unsayable = Unsayable::leaves_tool_out) {
  for (const Row& row : rows) {
    EXPECT_EQ(imported(row.given, unsayable), row.expected) << row.shows;
  }
}

std::string param(const std::string& members) { return R"({"name": "p", )" + members + "}"; }

TEST(ImportTools, ReadsTypesHoweverTheyAreSpelled) {
  const std::string text = param(R"("type": "string")");
  expect_imported({
      {"as it is", R"({"type": "boolean"})", param(R"("type": "boolean")")},
      {"spelled otherwise", R"({"type": "Tuple"})",
       param(R"("type": "array")") + "\n.type: 'Tuple' is read as 'array'"},
      {"one type or null", R"({"type": ["null", "string"]})", text},
      {"one schema or null", R"({"anyOf": [{"type": "string"}, {"type": "null"}], "default": "x"})",
       param(R"("type": "string", "default": "x")")},
      {"told by its values", R"({"enum": ["a"]})", param(R"("type": "string", "enum": ["a"])")},
      {"told by its items", R"({"items": {"type": "string"}})", param(R"("type": "array", "items_type": "string")")},
      {"an object", R"({"type": "dict"})", "left out\n: cannot be an object: the tool is left out"},
      {"a union", R"({"type": ["string", "integer"]})", "left out\n: cannot be a union: the tool is left out"},
      {"a union of schemas", R"({"oneOf": [{"type": "string"}, {"type": "array"}]})",
       "left out\n: cannot be a union: the tool is left out"},
      {"anything", "{}", "left out\n: cannot be any value: the tool is left out"},
      {"anything", "true", "left out\n: cannot be any value: the tool is left out"},
      {"a reference", R"({"$ref": "#/a"})", "left out\n: cannot be a reference: the tool is left out"},
      {"a strange word", R"({"type": "date"})", "left out\n: cannot be the type 'date': the tool is left out"},
  });
  expect_imported(
      {{"leniently", R"({"type": "object", "properties": {}, "description": "d", "default": {}})",
        param(R"("type": "string", "description": "d", "default": {})") + "\n: cannot be an object: it takes text"}},
      Unsayable::takes_text);
}

TEST(ImportTools, KeepsWhatARegistrySaysAndRemarksOnTheRest) {
  const std::string texts =
      ": allows texts, as every enumeration does: the handler gets one of them, whatever the type";
  expect_imported({
      {"all of it", R"({"type": "integer", "description": "d", "minimum": 1, "maximum": 9, "default": 5})",
       param(R"("type": "integer", "description": "d", "minimum": 1, "maximum": 9, "default": 5)")},
      {"1 and 1.0 are one number", R"({"type": "number", "default": 1})", param(R"("type": "number", "default": 1.0)")},
      {"what is unknown", R"({"type": "string", "format": "date", "maximum": 3, "description": 5})",
       param(R"("type": "string")") + "\n.description: is not kept: it is no text\n.maximum: is not kept: it never acts"
                                      "\n.format: is not kept"},
      {"numbers of an enumeration", R"({"type": "number", "enum": [1, 2.5, null], "default": 1})",
       param(R"("type": "number", "enum": ["1.0", "2.5"], "default": "1.0")") + "\n.enum" + texts},
      {"what a boolean allows anyway", R"({"type": "boolean", "enum": [true, false], "default": true})",
       param(R"("type": "boolean", "default": true)") + "\n.enum: is not kept: true and false say it already"},
      {"values that are no texts", R"({"type": "string", "enum": [[1]], "default": ""})",
       param(R"("type": "string", "default": "", "blank_is_value": true)") +
           "\n.enum: is not kept: its values have no texts\n.default: is blank: blank text is a value of the "
           "parameter"},
      {"a default that is none of the values", R"({"type": "string", "enum": ["a"], "default": {}})",
       param(R"("type": "string", "enum": ["a"])") + "\n.default: is not kept: it is none of the values"},
      {"items", R"({"type": "array", "items": {"type": "string", "enum": ["a"], "pattern": "a"}})",
       param(R"("type": "array", "items_type": "string", "enum": ["a"])") + "\n.items.pattern: is not kept"},
      {"items of no type", R"({"type": "array", "items": {"type": "object"}})",
       param(R"("type": "array")") + "\n.items: are taken as they come: that each is an object is not kept"},
      {"a key given twice", R"({"type": "array", "type": "string"})",
       param(R"("type": "string")") + "\n.type: is given twice: the later one is kept"},
  });
}

/// The whole registry that comes of the tools, and the remarks on them.
std::string imported_tools(const std::string& tools) {
  const ImportedTools found = import_tools(tools);
  std::string lines = write(*registry_value(found.entries).mapping().find("tools"));
  for (const Remark& remark : found.remarks) {
    lines += "\n" + std::to_string(remark.line) + " " + remark.place + ": " + remark.words;
  }
  return lines;
}

TEST(ImportTools, ReadsWholeTools) {
  const std::string action = R"({"type": "string", "enum": ["a", "b"], "description": "b: second")";
  const std::string schema_begin = R"([{"name": "t", "inputSchema": {"properties": {"action": )";
  const std::string actions = R"([{"name": "t", "actions": [{"name": "a"}, {"name": "b", "description": "second"}])";
  const std::string place = "1 [0].inputSchema";
  const std::vector<Row> rows = {
      {"a list under a name", "{\"version\": 1,\n\"tools\": [{\"name\": \"t\", \"title\": \"T\"}]}",
       "[{\"name\": \"t\"}]\n1 version: is not kept\n2 tools[0].title: is not kept\n"
       "2 tools[0].inputSchema: is missing: the tool takes nothing"},
      {"no name", R"([{}, {"name": "t", "inputSchema": {}}])",
       "[{\"name\": \"t\"}]\n1 [0].name: is missing: the tool is left out"},
      {"what a registry refuses",
       "[{\"name\": \"\", \"inputSchema\": {}},\n{\"name\": \"t\", \"inputSchema\": {}},\n"
       "{\"name\": \"t\", \"inputSchema\": {}}]",
       "[{\"name\": \"t\"}]\n1 [0]: name: a name must not be empty: the tool is left out\n"
       "3 [2]: name: 't' is declared already at tools[1].name: the tool is left out"},
      {"required and open",
       R"([{"name": "t", "inputSchema": {"properties": {"p": {"type": "array"}}, "required": ["p", "q"],
          "additionalProperties": true, "allOf": [{}], "minProperties": 1}}])",
       R"([{"name": "t", "params": [{"name": "p", "type": "array", "required": true}]}])"
       "\n" +
           place +
           ".required[1]: 'q' is no property: nothing requires it"
           "\n2 [0].inputSchema.allOf[0]: is not kept: it is no condition of what an action needs"
           "\n2 [0].inputSchema.additionalProperties: is not kept: arguments that are not declared are refused"
           "\n2 [0].inputSchema.minProperties: is not kept"},
      {"actions", schema_begin + action + R"(, "default": "b"}}}}])", actions + R"(, "default_action": "b"}])"},
      {"an action that calls need not name", schema_begin + action + "}}}}]",
       actions + "}]\n" + place + ".required: does not name 'action', which has no default: calls have to name one"},
      {"an action that calls must name", schema_begin + action + R"(, "default": "b"}}, "required": ["action"]}}])",
       actions + "}]\n" + place + ".required: needs an action: its default is not kept"},
      {"an action that is any text", schema_begin + R"({"type": "string"}}}}])",
       "[]\n" + place + ".properties.action: an 'action' is one of a list of texts: the tool is left out"},
      {"what admission keeps", R"([{"name": "t", "inputSchema": {"properties": {"repo": {"type": "string"}}}}])",
       "[]\n" + place + ".properties.repo: admission keeps an argument of this name for itself: the tool is left out"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(imported_tools(row.given), row.expected) << row.shows;
  }
  EXPECT_THROW((void)import_tools(R"({"tools": {}})"), ValueError);
}

/// What a schema cannot say is taken from the entries.
void forget_what_no_schema_says(std::vector<RegistryEntry>& entries) {
  for (RegistryEntry& entry : entries) {
    entry.handler.signature = {{{.name = "keywords", .kind = Parameter::Kind::VAR_KEYWORD}}};
    for (ActionSpec& action : entry.tool.actions) {
      action.synonyms.clear();
    }
    for (ParamSpec& param : entry.tool.params) {
      param.synonyms.clear();
      param.blank_is_value = false;
      param.default_ = param.action_defaults.empty() ? param.default_ : Value();
      param.action_defaults = {};
      param.type = param.enum_.empty() || param.type == "array" ? param.type : Text("string");
    }
  }
}

TEST(ImportTools, BringsBackWhatWasAdvertised) {
  std::ifstream file(TOOL_BINDING_EXAMPLES "/repo_daemon.registry.json");
  std::stringstream text;
  text << file.rdbuf();
  const RegistryFile registry(text.str());
  std::vector<RegistryEntry> entries(registry.entries().begin(), registry.entries().end());
  ASSERT_FALSE(entries.empty());
  EXPECT_EQ(registry_value(RegistryFile(write(registry_value(entries))).entries()), registry_value(entries));
  std::vector<Value> advertised;
  for (const RegistryEntry& entry : entries) {
    advertised.push_back(advertised_tool(ToolSpec(entry.tool)));
  }
  const ImportedTools imported = import_tools(write(advertised));
  forget_what_no_schema_says(entries);
  EXPECT_EQ(write(registry_value(imported.entries)), write(registry_value(entries)));
  EXPECT_TRUE(imported.remarks.empty());
}

}  // namespace
}  // namespace tool_binding::json
