// SPDX-License-Identifier: MIT
#include "property_schema.hpp"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "effective_bounds.hpp"
#include "rule_sentences.hpp"

namespace tool_binding::json {

namespace {

struct TakenKinds {
  std::string_view type;
  std::array<std::string_view, 3> kinds;  ///< of JSON values, the type's own first
};

/// What admission reads as each type.
constexpr auto taken_kinds = std::to_array<TakenKinds>({{"integer", {"integer", "string"}},
                                                        {"number", {"number", "string"}},
                                                        {"boolean", {"boolean", "string", "integer"}},
                                                        {"string", {"string", "number"}},
                                                        {"array", {"array", "string"}}});

std::vector<Value> kinds_taken_as(const Text& type) {
  const auto* const row = std::find_if(taken_kinds.begin(), taken_kinds.end(),
                                       [&](const TakenKinds& known) { return known.type == type.view(); });
  std::vector<Value> kinds;
  if (row != taken_kinds.end()) {
    std::copy_if(row->kinds.begin(), row->kinds.end(), std::back_inserter(kinds),
                 [](std::string_view kind) { return !kind.empty(); });
  }
  return kinds;
}

/// One type, or several in a list.
Value type_member(std::vector<Value> kinds) {
  return kinds.size() == 1 ? std::move(kinds.front()) : Value(std::move(kinds));
}

Value type_of(const ParamSpec& param, SchemaForm form) {
  const bool is_text = !param.enum_.empty() && param.type != "array";
  std::vector<Value> kinds = {is_text ? Value("string") : Value(param.type)};
  if (form == SchemaForm::open && param.name != ACTION_PARAM) {  // an action is named by text alone
    kinds = kinds_taken_as(param.type);
  }
  const bool takes_null = form == SchemaForm::strict || form == SchemaForm::open;
  if (takes_null && !param.required) {
    kinds.emplace_back("null");
  }
  return type_member(std::move(kinds));
}

Value with_null(const Value& values) {
  std::vector<Value> all(values.list().begin(), values.list().end());
  all.emplace_back();
  return all;
}

/// Strict function calling has no words for any value: a row or a table of plain values is what it can say.
Value plain_items() {
  const Value plain = ArgumentMap{{"type", std::vector<Value>{"string", "number", "boolean", "null"}}};
  return ArgumentMap{{"anyOf", std::vector<Value>{plain, ArgumentMap{{"type", "array"}, {"items", plain}}}}};
}

Value items_of(const ParamSpec& param, SchemaForm form) {
  const bool are_texts = param.items_type == Text("string") || !param.enum_.empty();
  if (!are_texts) {
    return form == SchemaForm::strict ? plain_items() : Value(ArgumentMap());
  }
  if (form == SchemaForm::open) {
    return ArgumentMap{{"type", std::vector<Value>{"string", "number", "boolean", "null"}}};
  }
  ArgumentMap items{{"type", "string"}};
  if (!param.enum_.empty()) {
    items.set("enum", list_of(param.enum_));
  }
  return items;
}

/// What the parameter is described with, and a line for each rule that this form says in words.
std::string description_of(const ToolSpec& tool, const ParamSpec& param, SchemaForm form) {
  std::string words(param.description);
  const auto add = [&](const std::string& sentence) {
    words.append(words.empty() || sentence.empty() ? "" : "\n").append(sentence);
  };
  if (param.required && !is_required_in(form, param)) {
    add("Needed.");
  }
  add(needed_by_sentence(tool, param));
  if (form == SchemaForm::open) {
    add(enumeration_sentence(param));
  }
  if (form == SchemaForm::strict || form == SchemaForm::open) {
    add(bounds_sentence(param));
  }
  if (form == SchemaForm::strict) {
    add(default_sentence(param));
  }
  add(action_defaults_sentence(param));
  return words;
}

void add_rules(ArgumentMap& schema, const ParamSpec& param, SchemaForm form) {
  if (param.type == "array") {
    schema.set("items", items_of(param, form));
  } else if (!param.enum_.empty() && form != SchemaForm::open) {
    const Value values = list_of(param.enum_);
    schema.set("enum", form == SchemaForm::strict && !param.required ? with_null(values) : values);
  }
  if (form == SchemaForm::strict || form == SchemaForm::open) {
    return;
  }
  const auto [minimum, maximum] = effective_bounds(param);
  if (!minimum.is_null()) {
    schema.set("minimum", minimum);
  }
  if (!maximum.is_null()) {
    schema.set("maximum", maximum);
  }
}

std::string described_actions(const ToolSpec& tool) {
  std::string words;
  for (const ActionSpec& action : tool.actions()) {
    if (!action.description.empty()) {
      words.append(words.empty() ? "" : "\n").append(action.name).append(": ").append(action.description);
    }
  }
  return words;
}

}  // namespace

Value property_schema(const ToolSpec& tool, const ParamSpec& param, SchemaForm form) {
  ArgumentMap schema{{"type", type_of(param, form)}};
  if (const std::string words = description_of(tool, param, form); !words.empty()) {
    schema.set("description", words);
  }
  add_rules(schema, param, form);
  if (form != SchemaForm::strict && !default_sentence(param).empty()) {
    schema.set("default", param.default_);
  }
  return schema;
}

Value action_schema(const ToolSpec& tool, SchemaForm form) {
  const ParamSpec names{.name = ACTION_PARAM,
                        .type = "string",
                        .enum_ = {tool.action_names().begin(), tool.action_names().end()},
                        .default_ = tool.default_action() ? Value(*tool.default_action()) : Value(),
                        .required = !tool.default_action()};
  ArgumentMap schema = property_schema(tool, names, form).mapping();
  const std::string described = described_actions(tool);
  if (described.empty()) {
    return schema;
  }
  const Value* const rules = schema.find("description");
  const std::string words = rules == nullptr ? described : described + "\n" + std::string(rules->text());
  ArgumentMap with_words{{"type", *schema.find("type")}, {"description", words}};
  for (const auto& [key, value] : schema) {
    if (!with_words.contains(key)) {
      with_words.set(key, value);
    }
  }
  return with_words;
}

bool is_required_in(SchemaForm form, const ParamSpec& param) {
  return form == SchemaForm::strict || (param.required && (form != SchemaForm::open || param.synonyms.empty()));
}

Value list_of(const std::vector<Text>& texts) {
  std::vector<Value> items;
  for (const Text& text : texts) {
    if (std::find(items.begin(), items.end(), Value(text)) == items.end()) {
      items.emplace_back(text);
    }
  }
  return items;
}

}  // namespace tool_binding::json
