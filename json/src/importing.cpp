// SPDX-License-Identifier: MIT
#include "importing.hpp"

#include <algorithm>
#include <array>

#include "sentence_reading.hpp"

namespace tool_binding::json {

namespace {

constexpr std::array<std::string_view, 3> tool_keys = {"name", "description", "inputSchema"};
constexpr std::array<std::string_view, 6> schema_keys = {"$schema",  "type",  "properties",
                                                         "required", "allOf", "additionalProperties"};

const Value& member(const Value& object, std::string_view key) {
  static const Value null;
  const Value* const found = object.is_mapping() ? object.mapping().find(key) : nullptr;
  return found == nullptr ? null : *found;
}

std::vector<Text> texts_of(const Value& list) {
  std::vector<Text> texts;
  if (list.is_list()) {
    for (const Value& item : list.list()) {
      texts.push_back(item.is_text() ? item.shared_text() : Text());
    }
  }
  return texts;
}

template <class Record>
Record* named(std::vector<Record>& records, const Text& name) {
  const auto found = std::find_if(records.begin(), records.end(), [&](const Record& r) { return r.name == name; });
  return found == records.end() ? nullptr : &*found;
}

}  // namespace

std::optional<RegistryEntry> Importing::tool(const Value& declared, const std::string& place) {
  tool_is_whole_ = true;
  if (!declared.is_mapping() || !member(declared, "name").is_text()) {
    remark(member_place(place, "name"), "is missing: the tool is left out", true);
    return std::nullopt;
  }
  ToolDeclaration tool{.name = member(declared, "name").shared_text(),
                       .description = text_of(declared.mapping(), "description", place)};
  remark_on_others(declared.mapping(), tool_keys, place);
  const Value& schema = member(declared, "inputSchema");
  const std::string schema_place = member_place(place, "inputSchema");
  if (schema.is_mapping()) {
    read_input_schema(tool, schema.mapping(), schema_place);
  } else {
    remark(schema_place, "is missing: the tool takes nothing");
  }
  if (!tool_is_whole_) {
    return std::nullopt;
  }
  return RegistryEntry{std::move(tool), {.signature = {{{"keywords", Parameter::Kind::VAR_KEYWORD}}}, .function = {}}};
}

void Importing::read_input_schema(ToolDeclaration& tool, const ArgumentMap& schema, const std::string& place) {
  const Value whole(schema);
  const Value& properties = member(whole, "properties");
  const std::string properties_place = member_place(place, "properties");
  if (properties.is_mapping()) {
    for (const auto& [name, property] : properties.mapping()) {
      read_property(tool, name, property, member_place(properties_place, name));
    }
  }
  read_required(tool, member(whole, "required"), member_place(place, "required"));
  read_conditions(tool, member(whole, "allOf"), member_place(place, "allOf"));
  read_rule_sentences(tool);
  if (const Value& others = member(whole, "additionalProperties"); !others.is_null() && others != Value(false)) {
    remark(member_place(place, "additionalProperties"), "is not kept: arguments that are not declared are refused");
  }
  remark_on_others(schema, schema_keys, place);
}

void Importing::read_required(ToolDeclaration& tool, const Value& names, const std::string& place) {
  const std::vector<Text> required = texts_of(names);
  const bool needs_action = std::find(required.begin(), required.end(), ACTION_PARAM) != required.end();
  if (needs_action && tool.default_action) {
    tool.default_action.reset();
    remark(place, "needs an action: its default is not kept");
  } else if (!needs_action && !tool.actions.empty() && !tool.default_action) {
    remark(place, "does not name 'action', which has no default: calls have to name one");
  }
  for (std::size_t index = 0; index < required.size(); ++index) {
    if (ParamSpec* const param = named(tool.params, required[index]); param != nullptr) {
      param->required = true;
    } else if (required[index] != ACTION_PARAM && tool_is_whole_) {
      remark(item_place(place, index), quoted_form(Value(required[index])) + " is no property: nothing requires it");
    }
  }
}

void Importing::read_conditions(ToolDeclaration& tool, const Value& conditions, const std::string& place) {
  if (!conditions.is_null() && !conditions.is_list()) {
    remark(place, "is not kept");
    return;
  }
  for (std::size_t index = 0; conditions.is_list() && index < conditions.list().size(); ++index) {
    if (!read_condition(tool, conditions.list()[index])) {
      remark(item_place(place, index), "is not kept: it is no condition of what an action needs");
    }
  }
}

/// Reads what an action needs, in the form in which `input_schema` says it. A call that leaves the action out runs the
/// default one, which the condition's first half is to say too.
bool Importing::read_condition(ToolDeclaration& tool, const Value& condition) {
  const Value& action = member(member(member(member(condition, "if"), "properties"), ACTION_PARAM), "const");
  const Value& needed = member(member(condition, "then"), "required");
  if (!action.is_text() || !needed.is_list() || named(tool.actions, action.shared_text()) == nullptr) {
    return false;
  }
  ArgumentMap runs_it{{"properties", ArgumentMap{{ACTION_PARAM, ArgumentMap{{"const", action}}}}}};
  if (tool.default_action != action.shared_text()) {
    runs_it.set("required", std::vector<Value>{ACTION_PARAM});
  }
  if (condition != Value(ArgumentMap{{"if", runs_it}, {"then", ArgumentMap{{"required", needed}}}})) {
    return false;
  }
  const std::vector<Text> names = texts_of(needed);
  if (!std::all_of(names.begin(), names.end(), [&](const Text& n) { return named(tool.params, n) != nullptr; })) {
    return false;
  }
  for (const Text& name : names) {
    named(tool.params, name)->required_for.push_back(action.shared_text());
  }
  return true;
}

Text Importing::text_of(const ArgumentMap& members, std::string_view key, const std::string& place) {
  const Value* const found = members.find(key);
  if (found == nullptr || found->is_null()) {
    return {};
  }
  if (!found->is_text()) {
    remark(member_place(place, key), "is not kept: it is no text");
    return {};
  }
  return found->shared_text();
}

void Importing::remark_on_others(const ArgumentMap& members, std::span<const std::string_view> kept,
                                 const std::string& place) {
  for (const auto& [key, value] : members) {
    if (std::find(kept.begin(), kept.end(), key.view()) == kept.end()) {
      remark(member_place(place, key), "is not kept");
    }
  }
}

}  // namespace tool_binding::json
