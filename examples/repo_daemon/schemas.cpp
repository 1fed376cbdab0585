// SPDX-License-Identifier: MIT
#include "schemas.hpp"

#include <vector>

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

tb::Value as_list(std::span<const tb::Text> texts) { return std::vector<tb::Value>(texts.begin(), texts.end()); }

std::string joined(std::span<const tb::Text> texts) {
  std::string line;
  for (const tb::Text& text : texts) {
    line.append(line.empty() ? "" : ", ").append(text);
  }
  return line;
}

/// What JSON Schema has no word for: needs and defaults that depend on the action.
std::string described(const tb::ParamSpec& param) {
  std::string words(param.description);
  if (!param.required_for.empty()) {
    words += " Needed for: " + joined(param.required_for) + ".";
  }
  std::string defaults;
  for (const auto& [action, value] : param.action_defaults) {
    defaults.append(defaults.empty() ? "" : ", ").append(tb::plain_form(value)).append(" for ").append(action);
  }
  return defaults.empty() ? words : words + " Default: " + defaults + ".";
}

tb::ArgumentMap of_type(const tb::ParamSpec& param) {
  tb::ArgumentMap allowed = {{"type", param.type}};
  if (!param.enum_.empty()) {
    allowed = {{"type", "string"}, {"enum", as_list(param.enum_)}};
  }
  if (param.type != "array") {
    return allowed;
  }
  tb::ArgumentMap list = {{"type", "array"}};
  if (!param.enum_.empty()) {
    list.set("items", allowed);
  } else if (param.items_type) {
    list.set("items", tb::ArgumentMap{{"type", *param.items_type}});
  }
  return list;
}

tb::Value schema_of(const tb::ParamSpec& param) {
  tb::ArgumentMap schema = of_type(param);
  schema.set("description", described(param));
  for (const auto& [word, value] : {std::pair("minimum", &param.minimum), std::pair("maximum", &param.maximum),
                                    std::pair("default", &param.default_)}) {
    if (!value->is_null()) {
      schema.set(word, *value);
    }
  }
  return schema;
}

tb::Value schema_of_action(const tb::ToolSpec& tool) {
  std::string words;
  for (const tb::ActionSpec& action : tool.actions()) {
    words.append(words.empty() ? "" : "; ").append(action.name).append(": ").append(action.description);
  }
  tb::ArgumentMap schema = {{"type", "string"}, {"enum", as_list(tool.action_names())}, {"description", words}};
  if (tool.default_action()) {
    schema.set("default", *tool.default_action());
  }
  return schema;
}

}  // namespace

tb::Value input_schema(const tb::ToolSpec& tool) {
  tb::ArgumentMap properties;
  std::vector<tb::Value> required;
  if (!tool.actions().empty()) {
    properties.set(tb::ACTION_PARAM, schema_of_action(tool));
  }
  if (!tool.actions().empty() && !tool.default_action()) {
    required.emplace_back(tb::ACTION_PARAM);
  }
  for (const tb::ParamSpec& param : tool.params()) {
    properties.set(param.name, schema_of(param));
    if (param.required) {
      required.emplace_back(param.name);
    }
  }
  tb::ArgumentMap schema = {{"type", "object"}, {"properties", properties}};
  if (!required.empty()) {
    schema.set("required", required);
  }
  return schema;
}

}  // namespace repo_daemon
