// SPDX-License-Identifier: MIT
#include "schema_reading.hpp"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "tool_binding/registry_check.hpp"

namespace tool_binding::json {

namespace {

struct UnsayableWord {
  std::string_view spelling;
  std::string_view words;
};

constexpr std::array<UnsayableWord, 6> unsayable_words = {{{"object", "an object"},
                                                           {"dict", "an object"},
                                                           {"map", "an object"},
                                                           {"any", "any value"},
                                                           {"null", "null alone"},
                                                           {"none", "null alone"}}};

struct TelltaleKey {
  std::string_view key;
  std::string_view type;   ///< empty where no type word says it
  std::string_view words;  ///< what it is then
};

/// What a schema without a type tells by another member.
constexpr std::array<TelltaleKey, 4> telltale_keys = {{{"$ref", "", "a reference"},
                                                       {"allOf", "", "a combination"},
                                                       {"properties", "", "an object"},
                                                       {"items", "array", ""}}};

SchemaReading unsayable(std::string_view words, const ArgumentMap& members) {
  return {.unsayable = std::string(words), .members = members};
}

SchemaReading read_type_word(std::string_view spelling, const ArgumentMap& members) {
  if (const auto word = type_word_of(spelling)) {
    return {.type = word, .spelling = *word == spelling ? "" : std::string(spelling), .members = members};
  }
  for (const UnsayableWord& row : unsayable_words) {
    if (row.spelling == spelling) {
      return unsayable(row.words, members);
    }
  }
  return unsayable("the type " + quoted_form(Value(spelling)), members);
}

bool are_texts(const Value& values) {
  return values.is_list() && !values.list().empty() &&
         std::all_of(values.list().begin(), values.list().end(), [](const Value& value) { return value.is_text(); });
}

SchemaReading read_without_type(const ArgumentMap& members) {
  for (const TelltaleKey& row : telltale_keys) {
    if (members.contains(row.key)) {
      return row.type.empty() ? unsayable(row.words, members) : SchemaReading{.type = row.type, .members = members};
    }
  }
  if (const Value* const values = members.find("enum"); values != nullptr && are_texts(*values)) {
    return {.type = "string", .members = members};
  }
  return unsayable("any value", members);
}

/// The alternatives that are not null.
std::vector<Value> beside_null(std::span<const Value> alternatives, bool (*is_null)(const Value&)) {
  std::vector<Value> others;
  std::copy_if(alternatives.begin(), alternatives.end(), std::back_inserter(others),
               [&](const Value& alternative) { return !is_null(alternative); });
  return others;
}

bool is_null_word(const Value& word) { return word == Value("null"); }

bool is_null_schema(const Value& schema) {
  const Value* const type = schema.is_mapping() ? schema.mapping().find("type") : nullptr;
  return type != nullptr && is_null_word(*type);
}

/// `members` without the member `key`, and with the members of `alternative` that it does not have.
ArgumentMap merged(const ArgumentMap& members, const Text& key, const ArgumentMap& alternative) {
  ArgumentMap all;
  for (const auto& [name, value] : members) {
    if (name != key) {
      all.set(name, value);
    }
  }
  for (const auto& [name, value] : alternative) {
    if (!all.contains(name)) {
      all.set(name, value);
    }
  }
  return all;
}

SchemaReading read_types(std::span<const Value> words, const ArgumentMap& members) {
  const std::vector<Value> types = beside_null(words, is_null_word);
  if (types.size() == 1 && types[0].is_text()) {
    return read_type_word(types[0].text(), members);
  }
  return unsayable(types.empty() ? "null alone" : "a union", members);
}

}  // namespace

SchemaReading read_schema(const Value& schema) {
  if (!schema.is_mapping()) {
    return unsayable("any value", {});
  }
  const ArgumentMap& members = schema.mapping();
  for (const Text key : {"anyOf", "oneOf"}) {
    if (const Value* const alternatives = members.find(key); alternatives != nullptr && alternatives->is_list()) {
      const std::vector<Value> others = beside_null(alternatives->list(), is_null_schema);
      if (others.size() != 1 || !others[0].is_mapping()) {
        return unsayable("a union", members);
      }
      return read_schema(merged(members, key, others[0].mapping()));
    }
  }
  const Value* const type = members.find("type");
  if (type == nullptr) {
    return read_without_type(members);
  }
  if (type->is_list()) {
    return read_types(type->list(), members);
  }
  return type->is_text() ? read_type_word(type->text(), members) : unsayable("any value", members);
}

Value enumeration_text(std::string_view type, const Value& value) {
  if (value.is_text()) {
    return value;
  }
  if (value.is_boolean()) {
    return value.boolean() ? "true" : "false";
  }
  try {
    const bool as_floating = type == "number" && value.is_integer();
    return value.is_integer() || value.is_floating()
               ? Value(plain_form(as_floating ? Value(value.integer().to_double()) : value))
               : Value();
  } catch (const std::overflow_error&) {
    return {};
  }
}

std::optional<std::vector<Text>> enumeration_texts(std::string_view type, const Value& values) {
  if (!values.is_list()) {
    return std::nullopt;
  }
  std::vector<Text> texts;
  for (const Value& value : values.list()) {
    const Value text = enumeration_text(type, value);
    if (text.is_text()) {
      texts.push_back(text.shared_text());
    } else if (!value.is_null()) {
      return std::nullopt;
    }
  }
  return texts;
}

}  // namespace tool_binding::json
