// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "importing.hpp"

namespace tool_binding::json {

namespace {

constexpr auto action_keys = std::to_array<std::string_view>({"type", "description", "enum", "default"});

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

}  // namespace

/// Only an enumeration of texts declares actions. Its description describes them, where it has the form for it.
void Importing::read_actions(const Value& schema, const std::string& place) {
  const SchemaReading reading = read_schema(schema, listed_.schema);
  const Value* const values = reading.members.find("enum");
  EnumerationReading names;
  if (reading.type == "string" && values != nullptr) {
    names = read_enumeration("string", *values);
  }
  if (names.texts.empty() ||
      std::any_of(names.texts.begin(), names.texts.end(), [](const Text& n) { return n.empty(); })) {
    leave_out(ACTION_PARAM, "is not an enumeration of texts, as an action is", place);
    return;
  }
  for (const Text& name : names.texts) {
    tool_.actions.push_back({.name = name});
  }
  const Text description = text_of(reading.members, "description");
  const std::vector<Text> descriptions = descriptions_among(description, tool_.actions);
  for (std::size_t index = 0; index < descriptions.size(); ++index) {
    tool_.actions[index].description = descriptions[index];
  }
  if (descriptions.empty()) {
    remarks_.add(Kind::annotation, ACTION_PARAM, member_place(place, "description"),
                 "its description is not kept: it does not describe the actions one by one");
  }
  read_default_action(reading.members.find("default"), member_place(place, "default"));
  remark_on_others(ACTION_PARAM, reading.members, action_keys, place);
}

void Importing::read_default_action(const Value* value, const std::string& place) {
  if (value == nullptr || value->is_null()) {
    return;
  }
  const auto is_declared = [&](const ActionSpec& action) { return Value(action.name) == *value; };
  if (std::any_of(tool_.actions.begin(), tool_.actions.end(), is_declared)) {
    tool_.default_action = value->shared_text();
  } else {
    remarks_.add(Kind::reading, ACTION_PARAM, place,
                 "its default " + quoted_form(*value) + " is not kept: it is none of the actions");
  }
}

}  // namespace tool_binding::json
