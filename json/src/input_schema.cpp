// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

namespace {

constexpr std::array<std::string_view, 3> kept_names = {ACTION_PARAM, REPO_ROOT_ARGUMENT, "repo"};

/// Whether a request can give the parameter: admission keeps some names for itself.
bool is_given(const ParamSpec& param) {
  return std::find(kept_names.begin(), kept_names.end(), param.name.view()) == kept_names.end();
}

/// The texts, each once.
Value list_of(const std::vector<Text>& texts) {
  std::vector<Value> items;
  for (const Text& text : texts) {
    if (std::find(items.begin(), items.end(), Value(text)) == items.end()) {
      items.emplace_back(text);
    }
  }
  return items;
}

/// Whether JSON has words for all of it.
bool is_finite(const Value& value) {
  switch (value.kind()) {
    case Kind::floating:
      return std::isfinite(value.floating());
    case Kind::list:
      return std::all_of(value.list().begin(), value.list().end(), is_finite);
    case Kind::mapping:
      return std::all_of(value.mapping().begin(), value.mapping().end(),
                         [](const auto& entry) { return is_finite(entry.value); });
    default:
      return true;
  }
}

/// The number that admission brings a number beyond `bound` to, null where there is none.
Value effective_bound(const ParamSpec& param, const Value& bound) {
  if (bound.is_null() || !is_finite(bound)) {
    return {};
  }
  if (param.type == "integer") {
    return bound.is_floating() ? Value(Integer::truncated(bound.floating())) : bound;
  }
  try {
    const bool is_exact = bound.is_floating() || bound.integer().compare(bound.integer().to_double()) == 0;
    return is_exact ? bound : Value(bound.integer().to_double());
  } catch (const std::overflow_error&) {
    return {};
  }
}

bool is_above(const Value& left, const Value& right) {
  if (left.is_integer()) {
    return right.is_integer() ? left.integer() > right.integer() : left.integer().compare(right.floating()) > 0;
  }
  return right.is_integer() ? right.integer().compare(left.floating()) < 0 : left.floating() > right.floating();
}

void add_bounds(ArgumentMap& schema, const ParamSpec& param) {
  const bool is_number = param.type == "integer" || param.type == "number";
  const Value minimum = effective_bound(param, param.minimum);
  const Value maximum = effective_bound(param, param.maximum);
  const bool crossed = !minimum.is_null() && !maximum.is_null() && is_above(minimum, maximum);
  if (!is_number || !param.enum_.empty() || crossed) {
    return;
  }
  if (!minimum.is_null()) {
    schema.set("minimum", minimum);
  }
  if (!maximum.is_null()) {
    schema.set("maximum", maximum);
  }
}

Value texts_among(const std::vector<Text>& values) {
  ArgumentMap schema{{"type", "string"}};
  if (!values.empty()) {
    schema.set("enum", list_of(values));
  }
  return schema;
}

Value property_of(const ParamSpec& param) {
  const bool is_array = param.type == "array";
  ArgumentMap schema{{"type", is_array || param.enum_.empty() ? Value(param.type) : Value("string")}};
  if (!param.description.empty()) {
    schema.set("description", param.description);
  }
  if (is_array && (param.items_type == Text("string") || !param.enum_.empty())) {
    schema.set("items", texts_among(param.enum_));
  } else if (!param.enum_.empty()) {
    schema.set("enum", list_of(param.enum_));
  }
  add_bounds(schema, param);
  if (param.action_defaults.empty() && !param.default_.is_null() && is_finite(param.default_)) {
    schema.set("default", param.default_);
  }
  return schema;
}

/// The names of the actions, and a line for each that is described.
Value action_property(const ToolSpec& tool) {
  ArgumentMap schema{{"type", "string"}};
  std::string description;
  for (const ActionSpec& action : tool.actions()) {
    if (!action.description.empty()) {
      description.append(description.empty() ? "" : "\n").append(action.name).append(": ").append(action.description);
    }
  }
  if (!description.empty()) {
    schema.set("description", description);
  }
  schema.set("enum", list_of({tool.action_names().begin(), tool.action_names().end()}));
  if (tool.default_action()) {
    schema.set("default", *tool.default_action());
  }
  return schema;
}

template <class Condition>
std::vector<Text> names_where(const ToolSpec& tool, Condition holds) {
  std::vector<Text> names;
  for (const ParamSpec& param : tool.params()) {
    if (is_given(param) && holds(param)) {
      names.push_back(param.name);
    }
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

Value input_schema(const ToolSpec& tool) {
  ArgumentMap properties;
  std::vector<Text> required = names_where(tool, [](const ParamSpec& param) { return param.required; });
  if (!tool.actions().empty()) {
    properties.set(ACTION_PARAM, action_property(tool));
    if (!tool.default_action()) {
      required.insert(required.begin(), ACTION_PARAM);
    }
  }
  for (const ParamSpec& param : tool.params()) {
    if (is_given(param)) {
      properties.set(param.name, property_of(param));
    }
  }
  ArgumentMap schema{{"type", "object"}, {"properties", properties}};
  if (!required.empty()) {
    schema.set("required", list_of(required));
  }
  if (const std::vector<Value> conditions = conditions_of(tool); !conditions.empty()) {
    schema.set("allOf", conditions);
  }
  schema.set("additionalProperties", false);
  return schema;
}

Value advertised_tool(const ToolSpec& tool) {
  return ArgumentMap{{"name", tool.name()}, {"description", tool.description()}, {"inputSchema", input_schema(tool)}};
}

}  // namespace tool_binding::json
