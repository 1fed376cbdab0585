// SPDX-License-Identifier: MIT
#include <algorithm>

#include "property_schema.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

namespace {

template <class Condition>
std::vector<Text> names_where(const ToolSpec& tool, Condition holds) {
  std::vector<Text> names;
  for (const ParamSpec& param : tool.params()) {
    if (!is_reserved_name(param.name) && holds(param)) {
      names.push_back(param.name);
    }
  }
  return names;
}

std::vector<Text> required_names(const ToolSpec& tool, SchemaForm form) {
  std::vector<Text> names = names_where(tool, [&](const ParamSpec& param) { return is_required_in(form, param); });
  if (!tool.actions().empty() && (form == SchemaForm::strict || !tool.default_action())) {
    names.insert(names.begin(), ACTION_PARAM);
  }
  return names;
}

/// What each action needs beyond what every call does. A call that leaves the action out runs the default one.
std::vector<Value> conditions_of(const ToolSpec& tool) {
  std::vector<Value> conditions;
  for (const Text& action : tool.action_names()) {
    const std::vector<Text> needed =
        names_where(tool, [&](const ParamSpec& param) { return !param.required && param.required_by(action.view()); });
    if (needed.empty()) {
      continue;
    }
    ArgumentMap runs_it{{"properties", ArgumentMap{{ACTION_PARAM, ArgumentMap{{"const", action}}}}}};
    if (tool.default_action() != action) {
      runs_it.set("required", list_of({ACTION_PARAM}));
    }
    conditions.emplace_back(ArgumentMap{{"if", runs_it}, {"then", ArgumentMap{{"required", list_of(needed)}}}});
  }
  return conditions;
}

}  // namespace

Value input_schema(const ToolSpec& tool, SchemaForm form) {
  ArgumentMap properties;
  if (!tool.actions().empty()) {
    properties.set(ACTION_PARAM, action_schema(tool, form));
  }
  for (const ParamSpec& param : tool.params()) {
    if (!is_reserved_name(param.name)) {
      properties.set(param.name, property_schema(tool, param, form));
    }
  }
  ArgumentMap schema{{"type", "object"}, {"properties", properties}};
  if (const std::vector<Text> required = required_names(tool, form); !required.empty() || form == SchemaForm::strict) {
    schema.set("required", list_of(required));
  }
  if (form == SchemaForm::conditions) {
    if (const std::vector<Value> conditions = conditions_of(tool); !conditions.empty()) {
      schema.set("allOf", conditions);
    }
  }
  if (form != SchemaForm::open) {
    schema.set("additionalProperties", false);
  }
  return schema;
}

Value advertised_tool(const ToolSpec& tool, SchemaForm form) {
  return ArgumentMap{
      {"name", tool.name()}, {"description", tool.description()}, {"inputSchema", input_schema(tool, form)}};
}

}  // namespace tool_binding::json
