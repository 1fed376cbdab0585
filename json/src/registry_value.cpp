// SPDX-License-Identifier: MIT
#include <utility>

#include "field_readers.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

namespace {

void add(ArgumentMap& object, std::string_view key, const Text& text) {
  if (!text.empty()) {
    object.append(key, text);
  }
}

void add(ArgumentMap& object, std::string_view key, const std::optional<Text>& text) {
  if (text) {
    object.append(key, *text);
  }
}

void add(ArgumentMap& object, std::string_view key, const Value& value) {
  if (!value.is_null()) {
    object.append(key, value);
  }
}

void add(ArgumentMap& object, std::string_view key, const std::vector<Text>& texts) {
  if (!texts.empty()) {
    object.append(key, std::vector<Value>(texts.begin(), texts.end()));
  }
}

void add_flag(ArgumentMap& object, std::string_view key, bool flag) {
  if (flag) {
    object.append(key, true);
  }
}

/// The values of `records`, each made by `value_of`.
template <class Records, class Record>
void add_list(ArgumentMap& object, std::string_view key, const Records& records, Value (*value_of)(const Record&)) {
  if (records.empty()) {
    return;
  }
  std::vector<Value> items;
  items.reserve(records.size());
  for (const Record& record : records) {
    items.push_back(value_of(record));
  }
  object.append(key, std::move(items));
}

Value action_value(const ActionSpec& action) {
  ArgumentMap object{{"name", action.name}};
  add(object, "synonyms", action.synonyms);
  add(object, "description", action.description);
  return object;
}

Value param_value(const ParamSpec& param) {
  ArgumentMap object{{"name", param.name}, {"type", param.type}};
  add(object, "synonyms", param.synonyms);
  add(object, "description", param.description);
  add(object, "items_type", param.items_type);
  add(object, "enum", param.enum_);
  add(object, "minimum", param.minimum);
  add(object, "maximum", param.maximum);
  add(object, "default", param.default_);
  if (!param.action_defaults.empty()) {
    object.append("action_defaults", param.action_defaults);
  }
  add_flag(object, "required", param.required);
  add(object, "required_for", param.required_for);
  add_flag(object, "blank_is_value", param.blank_is_value);
  return object;
}

Value parameter_value(const Parameter& parameter) {
  ArgumentMap object{{"name", parameter.name}};
  if (parameter.kind != Parameter::Kind::NAMED) {
    object.append("kind", parameter_kind_word(parameter.kind));
  }
  return object;
}

bool takes_anything(const Signature& signature) {
  return signature.parameters.size() == 1 && signature.parameters[0].kind == Parameter::Kind::VAR_KEYWORD;
}

Value entry_value(const RegistryEntry& entry) {
  ArgumentMap object{{"name", entry.tool.name}};
  add(object, "description", entry.tool.description);
  add_list(object, "actions", entry.tool.actions, action_value);
  add(object, "default_action", entry.tool.default_action);
  add_list(object, "params", entry.tool.params, param_value);
  if (const Signature& signature = entry.handler.signature; !takes_anything(signature)) {
    ArgumentMap handler;
    add_list(handler, "parameters", signature.parameters, parameter_value);
    object.append("handler", handler);
  }
  return object;
}

}  // namespace

Value registry_value(std::span<const RegistryEntry> entries) {
  std::vector<Value> tools;
  for (const RegistryEntry& entry : entries) {
    tools.push_back(entry_value(entry));
  }
  return ArgumentMap{{"tools", tools}};
}

}  // namespace tool_binding::json
