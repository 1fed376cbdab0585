// SPDX-License-Identifier: MIT
#include "tool_binding/json/registry_file.hpp"

#include <gtest/gtest.h>

#include "support/rows.hpp"
#include "tool_binding/json/parse_error.hpp"

namespace tool_binding::json {
namespace {

/// What requests show of a registry is shown by the rows of admission, which read it from JSON too.
TEST(RegistryFile, ReadsWhatNoRequestShows) {
  const auto tools = read_registry(R"({"description": "all", "tools": [
    {"name": "search", "description": "finds", "actions": [{"name": "find", "description": "one"}],
     "params": [{"name": "limit", "type": "integer", "description": "how many"}],
     "handler": {"description": "h", "parameters": [{"name": "limit", "description": "p"},
       {"name": "more", "kind": "VAR_POSITIONAL"}, {"name": "rest", "kind": "VAR_KEYWORD"}]}},
    {"name": "any", "handler": null}, {"name": "none", "handler": {}}]})");
  ASSERT_EQ(tools.size(), 3U);
  EXPECT_EQ(tools[0].tool.description(), "finds");
  EXPECT_EQ(tools[0].tool.actions()[0].description, "one");
  EXPECT_EQ(tools[0].tool.params()[0].description, "how many");
  const auto& parameters = tools[0].handler.signature.parameters;
  ASSERT_EQ(parameters.size(), 3U);
  EXPECT_EQ(parameters[0].name, "limit");
  EXPECT_EQ(parameters[0].kind, Parameter::Kind::NAMED);
  EXPECT_EQ(parameters[1].kind, Parameter::Kind::VAR_POSITIONAL);
  EXPECT_EQ(parameters[2].kind, Parameter::Kind::VAR_KEYWORD);
  ASSERT_EQ(tools[1].handler.signature.parameters.size(), 1U);
  EXPECT_EQ(tools[1].handler.signature.parameters[0].kind, Parameter::Kind::VAR_KEYWORD);
  EXPECT_TRUE(tools[2].handler.signature.parameters.empty());
}

TEST(RegistryFile, ReadsNullAsLeftOut) {
  const auto tools = read_registry(R"({"description": null, "tools": [{"name": "t", "actions": null,
    "default_action": null, "description": null, "params": [{"name": "p", "type": "array",
    "synonyms": null, "items_type": null, "enum": null, "minimum": null, "default": null, "action_defaults": null,
    "required": null, "required_for": null, "blank_is_value": null}]}]})");
  EXPECT_EQ(tools[0].tool.default_action(), std::nullopt);
  EXPECT_EQ(tools[0].tool.params()[0].items_type, std::nullopt);
  EXPECT_FALSE(tools[0].tool.params()[0].required);
}

std::string refusal(std::string_view text) {
  try {
    (void)read_registry(text);
  } catch (const RegistryError& error) {
    return std::string(error.message());
  }
  return "usable";
}

[[maybe_unused]] const bool registry_rows = test_rows("registry_file", [](const Row& row) {
  std::string text = row.setting("within", "@");
  EXPECT_EQ(refusal(text.replace(text.find('@'), 1, row.given)), row.expected);
});

TEST(RegistryFile, NamesRepeatedKeysAmongMany) {
  std::string keys;
  for (int key = 0; key < 20; ++key) {
    keys.append("\"k").append(std::to_string(key)).append("\": 0, ");
  }
  const std::string place = "line 2: tools[0].params[0].default.";
  EXPECT_EQ(refusal(R"({"tools": [{"name": "t", "params": [{"name": "p", "type": "string", "default": {)" + keys +
                    "\n\"k5\": 1, \"k3\": 1}}]}]}"),
            place + "k5: is given twice\n" + place + "k3: is given twice");
}

TEST(RegistryFile, HandsOutItsFaults) {
  const RegistryFile file(
      "{\n\"tools\": [{\"name\": \"\",\n\"params\": [{\n\"name\": \"p\",\n\"type\": \"array\"}]}]}");
  const std::vector<Fault> faults(file.faults().begin(), file.faults().end());
  EXPECT_EQ(faults,
            (std::vector<Fault>{{RegistryFinding::Kind::empty_name, "tools[0].name", "a name must not be empty", 2}}));
  EXPECT_EQ(file.entries()[0].tool.params[0].name, "p");
  EXPECT_EQ(file.line_of("tools[0].params[0].type"), 5U);
  EXPECT_EQ(file.line_of("tools[0].params[0].maximum"), 3U);
  EXPECT_EQ(file.line_of("tools[0].params[10]"), 3U);
  EXPECT_EQ(file.line_of(""), 1U);
}

TEST(RegistryFile, RefusesTextThatIsNoJson) { EXPECT_THROW((void)read_registry(R"({"tools": [}])"), ParseError); }

}  // namespace
}  // namespace tool_binding::json
