// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <stdexcept>

#include "importing.hpp"

namespace tool_binding::json {

namespace {

constexpr std::array<std::string_view, 7> property_keys = {"type",    "description", "items",  "enum",
                                                           "minimum", "maximum",     "default"};
constexpr std::array<std::string_view, 4> action_keys = {"type", "description", "enum", "default"};

/// The descriptions of actions, where each line of `description` gives one as "NAME: words", in order; else none.
std::vector<Text> descriptions_among(std::string_view description, const std::vector<ActionSpec>& actions) {
  std::vector<Text> found(actions.size());
  std::size_t action = 0;
  while (!description.empty()) {
    const std::string_view line = description.substr(0, description.find('\n'));
    description.remove_prefix(std::min(line.size() + 1, description.size()));
    const auto begins_line = [&](const ActionSpec& spec) {
      return line.starts_with(spec.name.view()) && line.substr(spec.name.size()).starts_with(": ");
    };
    while (action < actions.size() && !begins_line(actions[action])) {
      ++action;
    }
    if (action == actions.size()) {
      return {};
    }
    found[action] = line.substr(actions[action].name.size() + 2);
    ++action;
  }
  return found;
}

bool is_blank(const Value& value) {
  return value.is_text() && value.text().find_first_not_of(" \t\n\r") == std::string_view::npos;
}

bool is_boolean_words(const std::vector<Text>& values) {
  return !values.empty() && std::all_of(values.begin(), values.end(), [](const Text& value) {
    return value == "true" || value == "false" || value == "True" || value == "False";
  });
}

}  // namespace

void Importing::read_property(ToolDeclaration& tool, const Text& name, const Value& schema, const std::string& place) {
  if (name == ACTION_PARAM) {
    read_actions(tool, schema, place);
    return;
  }
  if (name == REPO_ROOT_ARGUMENT || name == "repo") {
    remark(place, "admission keeps an argument of this name for itself: the tool is left out", true);
    return;
  }
  const SchemaReading reading = read_schema(schema);
  ParamSpec param{.name = name, .type = {}, .description = text_of(reading.members, "description", place)};
  read_type(param, reading, place);
  const auto read = [&](std::string_view key, auto&& take) {
    if (const Value* const value = reading.members.find(key); value != nullptr && !value->is_null()) {
      take(*value, member_place(place, key));
    }
  };
  if (reading.type) {
    read("items", [&](const Value& value, const std::string& at) { read_items(param, value, at); });
    read("enum", [&](const Value& value, const std::string& at) { read_enumeration(param, value, at); });
    read("minimum", [&](const Value& v, const std::string& at) { read_bound(param, &ParamSpec::minimum, v, at); });
    read("maximum", [&](const Value& v, const std::string& at) { read_bound(param, &ParamSpec::maximum, v, at); });
    remark_on_others(reading.members, property_keys, place);
  }
  read("default", [&](const Value& value, const std::string& at) { read_default(param, value, at); });
  tool.params.push_back(std::move(param));
}

/// Only an enumeration of texts declares actions. Its description describes them, where it has the form for it.
void Importing::read_actions(ToolDeclaration& tool, const Value& schema, const std::string& place) {
  const SchemaReading reading = read_schema(schema);
  const Value* const values = reading.members.find("enum");
  const auto names = values == nullptr ? std::nullopt : enumeration_texts("string", *values);
  if (reading.type != "string" || !names || names->empty()) {
    remark(place, "an 'action' is one of a list of texts: the tool is left out", true);
    return;
  }
  for (const Text& name : *names) {
    tool.actions.push_back({.name = name});
  }
  const Text description = text_of(reading.members, "description", place);
  const std::vector<Text> descriptions = descriptions_among(description, tool.actions);
  for (std::size_t index = 0; index < descriptions.size(); ++index) {
    tool.actions[index].description = descriptions[index];
  }
  if (descriptions.empty()) {
    remark(member_place(place, "description"), "is not kept: it does not describe the actions one by one");
  }
  const Value* const default_action = reading.members.find("default");
  if (default_action != nullptr && default_action->is_text()) {
    tool.default_action = default_action->shared_text();
  }
  remark_on_others(reading.members, action_keys, place);
}

void Importing::read_type(ParamSpec& param, const SchemaReading& reading, const std::string& place) {
  param.type = reading.type.value_or("string");
  if (!reading.type) {
    const bool left_out = unsayable_ == Unsayable::leaves_tool_out;
    remark(place, "cannot be " + reading.unsayable + (left_out ? ": the tool is left out" : ": it takes text"),
           left_out);
  } else if (!reading.spelling.empty()) {
    remark(member_place(place, "type"),
           quoted_form(Value(reading.spelling)) + " is read as " + quoted_form(Value(*reading.type)));
  }
}

/// Items are taken as they come, but for texts: what else a schema says of them is remarked upon.
void Importing::read_items(ParamSpec& param, const Value& items, const std::string& place) {
  if (param.type != "array") {
    remark(place, "is not kept: only a list has items");
    return;
  }
  const SchemaReading reading = read_schema(items);
  if (!reading.type) {
    if (reading.unsayable != "any value") {
      remark(place, "are taken as they come: that each is " + reading.unsayable + " is not kept");
    }
    return;
  }
  param.items_type = *reading.type;
  constexpr std::array<std::string_view, 2> item_keys = {"type", "enum"};
  if (const Value* const values = reading.members.find("enum"); values != nullptr) {
    read_enumeration(param, *values, member_place(place, "enum"));
  }
  remark_on_others(reading.members, item_keys, place);
}

void Importing::read_enumeration(ParamSpec& param, const Value& values, const std::string& place) {
  const Text of_type = param.type == "array" ? param.items_type.value_or("string") : param.type;
  auto texts = enumeration_texts(of_type, values);
  if (!texts) {
    remark(place, "is not kept: its values have no texts");
  } else if (of_type == "boolean" && is_boolean_words(*texts)) {
    remark(place, "is not kept: true and false say it already");
  } else {
    if (of_type != "string") {
      remark(place, "allows texts, as every enumeration does: the handler gets one of them, whatever the type");
    }
    param.enum_ = *std::move(texts);
  }
}

void Importing::read_bound(ParamSpec& param, Value ParamSpec::*bound, const Value& value, const std::string& place) {
  const bool takes_numbers = param.type == "integer" || param.type == "number";
  if (takes_numbers && param.enum_.empty() && (value.is_integer() || value.is_floating())) {
    param.*bound = value;
  } else {
    remark(place, "is not kept: it never acts");
  }
}

/// A default is what the parameter would make of it: JSON Schema does not tell 1 from 1.0, and an enumeration's values
/// are texts.
void Importing::read_default(ParamSpec& param, const Value& value, const std::string& place) {
  param.default_ = value;
  if (!param.enum_.empty() && param.type != "array") {
    param.default_ = enumeration_text(param.type, value);
  } else if (param.type == "number" && value.is_integer()) {
    try {
      param.default_ = value.integer().to_double();
    } catch (const std::overflow_error&) {
      param.default_ = {};
    }
  }
  if (param.default_.is_null()) {
    remark(place, "is not kept: it is none of the values");
  } else if (param.type == "string" && is_blank(param.default_)) {
    param.blank_is_value = true;
    remark(place, "is blank: blank text is a value of the parameter");
  }
}

}  // namespace tool_binding::json
