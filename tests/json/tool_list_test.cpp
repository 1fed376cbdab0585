// SPDX-License-Identifier: MIT
#include "tool_binding/json/tool_list.hpp"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/rows.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::json {
namespace {

std::string schema_of_parameter(const std::string& members, SchemaForm form) {
  const auto tools = read_registry(R"({"tools": [{"name": "t", "actions": [{"name": "a"}, {"name": "b"}, {"name": "c"}],
                                                    "params": [{"name": "p", )" +
                                   members + "}]}]}");
  const Value schema = input_schema(tools[0].tool, form);
  return write(*schema.mapping().find("properties")->mapping().find("p"));
}

std::string remark_line(const Remark& remark) {
  constexpr std::array kinds = {"tool", "lost", "reading", "annotation"};
  return std::string("\n") + kinds.at(static_cast<std::size_t>(remark.kind)) + ": " + remark.words;
}

/// The parameter that comes of a property "p", or what stands where none does; and the remarks on it.
std::string imported(const std::string& property, const std::string& required,
                     Undeclarable undeclarable = Undeclarable::left_out) {
  const ImportedTools tools = import_tools(
      R"([{"name": "t", "inputSchema": {"type": "object", "properties": {"p": )" + property + R"(}, "required": [)" +
          required + R"(], "$defs": {"a": {"enum": ["x", "y"]}, "b": {"$ref": "#/$defs/b"}}}}])",
      undeclarable);
  std::string lines = "no tool";
  if (!tools.entries.empty()) {
    const Value registry = registry_value(tools.entries);
    const Value* const params = registry.mapping().find("tools")->list()[0].mapping().find("params");
    lines = params == nullptr ? "no parameter" : write(params->list()[0]);
  }
  for (const Remark& remark : tools.remarks) {
    if (remark.words != "'$defs' is not kept") {
      lines += remark_line(remark);
    }
  }
  return lines;
}

/// The whole registry that comes of the tools, and the remarks on them.
std::string imported_tools(const std::string& tools) {
  const ImportedTools found = import_tools(tools);
  std::string lines = write(*registry_value(found.entries).mapping().find("tools"));
  for (const Remark& remark : found.remarks) {
    lines += remark_line(remark) + " (" + std::to_string(remark.line) + " " + remark.place + ")";
  }
  return lines;
}

[[maybe_unused]] const bool tool_list_rows = test_rows("tool_list", [](const Row& row) {
  const std::map<std::string, std::function<std::string(const std::string&)>> doors = {
      {"schema of parameter", [](const auto& given) { return schema_of_parameter(given, SchemaForm::common); }},
      {"strict schema", [](const auto& given) { return schema_of_parameter(given, SchemaForm::strict); }},
      {"open schema", [](const auto& given) { return schema_of_parameter(given, SchemaForm::open); }},
      {"import property", [](const auto& given) { return imported(given, ""); }},
      {"import required", [](const auto& given) { return imported(given, R"("p")"); }},
      {"import leniently", [](const auto& given) { return imported(given, R"("p")", Undeclarable::takes_text); }},
      {"import tools", imported_tools}};
  EXPECT_EQ(doors.at(row.setting("ask"))(row.given), row.expected);
});

TEST(ImportTools, RefusesWhatIsNotAListOfTools) {
  for (const char* const no_list : {R"({"tools": {}})", "[]", "5", R"({"result": {}})", R"([{"name": "t"}])",
                                    R"([{"title": "t", "parameters": {}}])", R"([{"name": "t", "arguments": {}}])"}) {
    EXPECT_THROW((void)import_tools(no_list), ValueError) << no_list;
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
  const std::string begin =
      R"({"type": "object", "properties": {"action": {"type": "string", "description": "a: first", )"
      R"("enum": ["a", "b", "c"], "default": "a"}, "p": {"type": "string"}, )"
      R"("q": {"type": "string", "description": "Needed by a and c."}}, "required": ["p"], )";
  const std::string conditions =
      R"("allOf": [{"if": {"properties": {"action": {"const": "a"}}}, "then": {"required": ["q"]}}, )"
      R"({"if": {"properties": {"action": {"const": "c"}}, "required": ["action"]}, "then": {"required": ["q"]}}], )";
  const std::string end = R"("additionalProperties": false})";
  EXPECT_EQ(write(advertised_tool(tools[0].tool)),
            R"({"name": "t", "description": "", "inputSchema": )" + begin + end + "}");
  EXPECT_EQ(write(input_schema(tools[0].tool, SchemaForm::conditions)), begin + conditions + end);
  EXPECT_EQ(write(input_schema(tools[0].tool, SchemaForm::strict)),
            R"({"type": "object", "properties": {"action": {"type": ["string", "null"], )"
            R"("description": "a: first\nDefault: \"a\".", "enum": ["a", "b", "c", null]}, "p": {"type": "string"}, )"
            R"("q": {"type": ["string", "null"], "description": "Needed by a and c."}}, )"
            R"("required": ["action", "p", "q"], )" +
                end);
  EXPECT_EQ(write(input_schema(tools[1].tool, SchemaForm::open)),
            R"({"type": "object", "properties": {"action": {"type": "string", "description": "One of: \"a\"."}, )"
            R"("p": {"type": ["string", "number"]}}, "required": ["action", "p"]})");
  EXPECT_EQ(write(*input_schema(tools[1].tool).mapping().find("required")), R"(["action", "p"])");
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
      param.blank_is_value = param.required && param.type == "string" && param.enum_.empty();
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
  const std::string_view handled = R"({"tools": [{"name": "t", "handler": {"parameters": [{"name": "query"}, )"
                                   R"({"name": "rest", "kind": "VAR_KEYWORD"}]}}]})";
  EXPECT_EQ(write(registry_value(RegistryFile(handled).entries())), handled);
  const std::vector<RegistryEntry> declared = entries;
  forget_what_no_schema_says(entries);
  for (const SchemaForm form : {SchemaForm::common, SchemaForm::conditions}) {
    std::vector<Value> advertised;
    for (const RegistryEntry& entry : declared) {
      advertised.push_back(advertised_tool(ToolSpec(entry.tool), form));
    }
    const ImportedTools imported = import_tools(write(advertised));
    EXPECT_EQ(write(registry_value(imported.entries)), write(registry_value(entries)));
    EXPECT_TRUE(imported.remarks.empty()) << imported.remarks[0].words;
  }
}

}  // namespace
}  // namespace tool_binding::json
