// SPDX-License-Identifier: MIT
#include "importing.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "sentence_reading.hpp"

namespace tool_binding::json {

namespace {

constexpr auto schema_keys = std::to_array<std::string_view>({"inputSchema", "input_schema", "parameters"});
constexpr auto tool_keys = std::to_array<std::string_view>({"name", "description", "type"});
constexpr auto kept_keys =
    std::to_array<std::string_view>({"type", "properties", "required", "allOf", "additionalProperties", "optional"});

template <class Record>
std::map<Text, Record*> by_name(std::vector<Record>& records) {
  std::map<Text, Record*> named;
  for (Record& record : records) {
    named.emplace(record.name, &record);
  }
  return named;
}

/// Whether an object that is meant as a schema has the parameters themselves for its members.
bool is_properties_alone(const ArgumentMap& schema) {
  return !schema.empty() && !schema.contains("properties") &&
         std::all_of(schema.begin(), schema.end(), [](const auto& entry) {
           return entry.value.is_mapping() &&
                  (entry.value.mapping().contains("type") || entry.value.mapping().contains("description"));
         });
}

bool is_condition(const Value& part) { return part.is_mapping() && part.mapping().contains("if"); }

/// The schema without the parts of its "allOf" that are conditions, which are read apart.
ArgumentMap without_conditions(ArgumentMap schema) {
  const Value parts = member_of(schema, "allOf");
  if (parts.is_list()) {
    std::vector<Value> others;
    std::copy_if(parts.list().begin(), parts.list().end(), std::back_inserter(others),
                 [](const Value& part) { return !is_condition(part); });
    schema.set("allOf", others);
  }
  return schema;
}

}  // namespace

ListedTool listed_tool(const Value& item, std::string place) {
  if (const Value& function = member_of(item, "function"); function.is_mapping()) {
    return listed_tool(function, member_place(place, "function"));
  }
  if (!member_of(item, "name").is_text()) {
    return {.members = {}, .place = std::move(place), .schema = {}};
  }
  for (const std::string_view key : schema_keys) {
    if (const Value& schema = member_of(item, key); schema.is_mapping()) {
      return {.members = item, .place = std::move(place), .schema = schema, .schema_key = key};
    }
  }
  return {.members = item, .place = std::move(place), .schema = {}};
}

ToolDeclaration Importing::read() {
  const ArgumentMap& members = listed_.members.mapping();
  tool_.name = members.find("name")->shared_text();
  tool_.description = text_of(members, "description");
  for (const auto& [key, value] : members) {
    const bool is_read = key == listed_.schema_key || std::count(tool_keys.begin(), tool_keys.end(), key.view()) != 0;
    if (!is_read) {
      remarks_.add(Kind::annotation, "", member_place(listed_.place, key), quoted_form(Value(key)) + " is not kept");
    }
  }
  if (listed_.schema.is_null()) {
    remarks_.add(Kind::reading, "", listed_.place, "has no schema: it takes nothing");
  } else {
    read_schema_of_tool();
  }
  read_rule_sentences(tool_);
  return std::move(tool_);
}

void Importing::read_schema_of_tool() {
  const std::string place = member_place(listed_.place, listed_.schema_key);
  const bool properties_alone = is_properties_alone(listed_.schema.mapping());
  const SchemaReading reading = properties_alone
                                    ? SchemaReading{.undeclarable = "an object"}
                                    : read_schema(without_conditions(listed_.schema.mapping()), listed_.schema);
  const Value whole(reading.members);
  const bool is_union = member_of(listed_.schema, "anyOf").is_list() || member_of(listed_.schema, "oneOf").is_list();
  if (reading.type || (reading.undeclarable != "an object" && reading.undeclarable != "any value") ||
      (is_union && !reading.members.contains("properties"))) {
    remarks_.leave_out(is_union ? "its arguments are a union" : "its schema is not that of an object");
    return;
  }
  const Value& properties = properties_alone ? listed_.schema : member_of(whole, "properties");
  const std::string properties_place = properties_alone ? place : member_place(place, "properties");
  const Value& names = member_of(whole, "required");
  for (std::size_t index = 0; names.is_list() && index < names.list().size(); ++index) {
    if (names.list()[index].is_text()) {
      required_.insert(names.list()[index].shared_text());
    }
  }
  if (properties.is_mapping()) {
    for (const auto& [name, property] : properties.mapping()) {
      if (member_of(property, "required") == Value(true)) {
        required_.insert(name);
      }
      read_property(name, property, member_place(properties_place, name));
    }
  }
  params_ = by_name(tool_.params);
  actions_ = by_name(tool_.actions);
  read_required(names, member_place(place, "required"));
  read_conditions(member_of(listed_.schema, "allOf"), member_place(place, "allOf"));
  if (member_of(whole, "additionalProperties").is_mapping()) {
    remarks_.add(Kind::rule_lost, "", member_place(place, "additionalProperties"),
                 "arguments beyond those it names are refused");
  }
  remark_on_others("", reading.members, kept_keys, place);
  if (is_union) {
    remarks_.add(Kind::rule_lost, "", place, "what its alternatives say is not kept");
  }
}

void Importing::read_required(const Value& names, const std::string& place) {
  const bool needs_action = required_.contains(ACTION_PARAM);
  if (needs_action && tool_.default_action) {
    tool_.default_action.reset();
    remarks_.add(Kind::annotation, ACTION_PARAM, place, "is required: its default has no effect");
  } else if (!needs_action && !tool_.actions.empty() && !tool_.default_action) {
    remarks_.add(Kind::reading, ACTION_PARAM, place, "has no default: calls have to name one");
  }
  for (std::size_t index = 0; names.is_list() && index < names.list().size(); ++index) {
    if (names.list()[index].is_text()) {
      require(names.list()[index].shared_text(), item_place(place, index));
    }
  }
}

void Importing::require(const Text& name, const std::string& place) {
  const bool is_action = name == ACTION_PARAM && !tool_.actions.empty();
  if (!is_action && !params_.contains(name) && !remarks_.is_left_out()) {
    remarks_.add(Kind::reading, name, place, "is required and not declared: calls neither need it nor may have it");
  }
}

void Importing::read_conditions(const Value& conditions, const std::string& place) {
  for (std::size_t index = 0; conditions.is_list() && index < conditions.list().size(); ++index) {
    const Value& condition = conditions.list()[index];
    if (is_condition(condition) && !read_condition(condition)) {
      remarks_.add(Kind::rule_lost, "", item_place(place, index),
                   "a condition is not kept: it says other things than what an action needs");
    }
  }
}

/// Reads what an action needs, in the form in which `input_schema` says it. A call that leaves the action out runs the
/// default one, which the condition's first half is to say too.
bool Importing::read_condition(const Value& condition) {
  const Value& action =
      member_of(member_of(member_of(member_of(condition, "if"), "properties"), ACTION_PARAM), "const");
  const Value& needed = member_of(member_of(condition, "then"), "required");
  if (!action.is_text() || !needed.is_list() || !actions_.contains(action.shared_text())) {
    return false;
  }
  ArgumentMap runs_it{{"properties", ArgumentMap{{ACTION_PARAM, ArgumentMap{{"const", action}}}}}};
  if (tool_.default_action != action.shared_text()) {
    runs_it.set("required", std::vector<Value>{ACTION_PARAM});
  }
  if (condition != Value(ArgumentMap{{"if", runs_it}, {"then", ArgumentMap{{"required", needed}}}})) {
    return false;
  }
  const auto is_declared = [&](const Value& name) { return name.is_text() && params_.contains(name.shared_text()); };
  if (!std::all_of(needed.list().begin(), needed.list().end(), is_declared)) {
    return false;
  }
  for (const Value& name : needed.list()) {
    params_.at(name.shared_text())->required_for.push_back(action.shared_text());
  }
  return true;
}

Text Importing::text_of(const ArgumentMap& members, std::string_view key) const {
  const Value* const found = members.find(key);
  return found != nullptr && found->is_text() ? found->shared_text() : Text();
}

void Importing::remark_on_others(const Text& param, const ArgumentMap& members, std::span<const std::string_view> kept,
                                 const std::string& place) {
  for (const auto& [key, value] : members) {
    const bool is_kept = std::find(kept.begin(), kept.end(), key.view()) != kept.end() ||
                         (key == "minLength" && (value == Value(0) || value == Value(1)));  // empty text is left out
    if (!is_kept) {
      remarks_.add(is_rule(key) ? Kind::rule_lost : Kind::annotation, param, member_place(place, key),
                   quoted_form(Value(key)) + " is not kept");
    }
  }
}

}  // namespace tool_binding::json
