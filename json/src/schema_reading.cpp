// SPDX-License-Identifier: MIT
#include "schema_reading.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <utility>

#include "type_spelling.hpp"

namespace tool_binding::json {

namespace {

constexpr std::string_view null_alone = "null alone";
constexpr std::string_view nothing = "nothing";

constexpr auto rule_keys = std::to_array<std::string_view>({"$ref",
                                                            "additionalItems",
                                                            "additionalProperties",
                                                            "allOf",
                                                            "anyOf",
                                                            "const",
                                                            "contains",
                                                            "dependencies",
                                                            "dependentRequired",
                                                            "dependentSchemas",
                                                            "else",
                                                            "enum",
                                                            "exclusiveMaximum",
                                                            "exclusiveMinimum",
                                                            "if",
                                                            "items",
                                                            "maxContains",
                                                            "maxItems",
                                                            "maxLength",
                                                            "maxProperties",
                                                            "maximum",
                                                            "minContains",
                                                            "minItems",
                                                            "minLength",
                                                            "minProperties",
                                                            "minimum",
                                                            "multipleOf",
                                                            "not",
                                                            "oneOf",
                                                            "pattern",
                                                            "patternProperties",
                                                            "prefixItems",
                                                            "properties",
                                                            "propertyNames",
                                                            "required",
                                                            "then",
                                                            "type",
                                                            "unevaluatedItems",
                                                            "unevaluatedProperties",
                                                            "uniqueItems"});

/// What a schema without a type tells by another member.
struct TelltaleKey {
  std::string_view key;
  std::string_view type;  ///< empty for an object
};

constexpr auto telltale_keys = std::to_array<TelltaleKey>({{"properties", ""},
                                                           {"additionalProperties", ""},
                                                           {"items", "array"},
                                                           {"prefixItems", "array"},
                                                           {"minItems", "array"},
                                                           {"maxItems", "array"},
                                                           {"pattern", "string"},
                                                           {"minLength", "string"},
                                                           {"maxLength", "string"},
                                                           {"minimum", "number"},
                                                           {"maximum", "number"},
                                                           {"multipleOf", "number"}});

SchemaReading undeclarable(std::string_view words, ArgumentMap members, bool allows_text = false) {
  return {.undeclarable = std::string(words), .allows_text = allows_text, .members = std::move(members)};
}

ArgumentMap without(const ArgumentMap& members, std::string_view key) {
  ArgumentMap others;
  for (const auto& [name, value] : members) {
    if (name != key) {
      others.set(name, value);
    }
  }
  return others;
}

/// The members of both, those of `first` where both have one.
ArgumentMap merged(const ArgumentMap& first, const ArgumentMap& second) {
  ArgumentMap all = first;
  for (const auto& [name, value] : second) {
    if (!all.contains(name)) {
      all.set(name, value);
    }
  }
  return all;
}

/// A piece of a JSON pointer (RFC 6901) as the name that it stands for.
Text unescaped_piece(std::string_view piece) {
  std::string name;
  for (std::size_t place = 0; place < piece.size(); ++place) {
    const bool is_escape = piece[place] == '~' && place + 1 < piece.size();
    name += is_escape ? (piece[++place] == '1' ? '/' : '~') : piece[place];
  }
  return name;
}

/// What "#/properties/name" leads to, null where it leads nowhere.
const Value* referred(const Value& root, std::string_view reference) {
  if (!reference.starts_with('#')) {
    return nullptr;
  }
  const Value* found = &root;
  for (std::string_view rest = reference.substr(1); found != nullptr && rest.starts_with('/');) {
    const std::size_t end = std::min(rest.find('/', 1), rest.size());
    const Text name = unescaped_piece(rest.substr(1, end - 1));
    rest.remove_prefix(end);
    std::size_t index = 0;
    if (found->is_list()) {
      const auto [stop, error] = std::from_chars(name.view().data(), name.view().data() + name.size(), index);
      found = error == std::errc() && index < found->list().size() ? &found->list()[index] : nullptr;
    } else {
      found = found->is_mapping() ? found->mapping().find(name) : nullptr;
    }
  }
  return found;
}

/// What values tell of their type; the text of each where they have several.
std::string_view type_of_values(std::span<const Value> values) {
  const auto all = [&](auto is_kind) {
    return std::all_of(values.begin(), values.end(),
                       [&](const Value& value) { return value.is_null() || is_kind(value); });
  };
  if (all([](const Value& value) { return value.is_integer(); })) {
    return "integer";
  }
  if (all([](const Value& value) { return value.is_integer() || value.is_floating(); })) {
    return "number";
  }
  return all([](const Value& value) { return value.is_boolean(); }) ? "boolean" : "string";
}

bool has_scalars(const Value& values) {
  const auto is_scalar = [](const Value& value) { return !value.is_list() && !value.is_mapping(); };
  return values.is_list() && std::all_of(values.list().begin(), values.list().end(), is_scalar) &&
         std::any_of(values.list().begin(), values.list().end(), [](const Value& value) { return !value.is_null(); });
}

SchemaReading read_without_type(ArgumentMap members) {
  if (const Value* const values = members.find("enum"); values != nullptr && has_scalars(*values)) {
    return {.type = type_of_values(values->list()), .members = std::move(members)};
  }
  if (const Value* const values = members.find("enum");
      values != nullptr && values->is_list() && !values->list().empty() && values->list().front().is_null()) {
    return undeclarable(null_alone, std::move(members));
  }
  for (const TelltaleKey& row : telltale_keys) {
    if (members.contains(row.key)) {
      return row.type.empty() ? undeclarable("an object", std::move(members))
                              : SchemaReading{.type = row.type, .members = std::move(members)};
    }
  }
  if (members.find("not") != nullptr && *members.find("not") == Value(ArgumentMap())) {
    return undeclarable(nothing, std::move(members));
  }
  return undeclarable("any value", std::move(members), true);
}

SchemaReading read_type_word(std::string_view spelling, ArgumentMap members) {
  const Value* const values = members.find("enum");
  if ((spelling == "enum" || spelling == "Enum") && values != nullptr && has_scalars(*values)) {
    return {.type = type_of_values(values->list()), .spelling = std::string(spelling), .members = std::move(members)};
  }
  TypeSpelling read = read_type_spelling(spelling);
  if (!read.type) {
    return undeclarable(read.undeclarable, std::move(members), read.undeclarable != "an object");
  }
  if (!read.items.empty() && !members.contains("items")) {
    members.set("items", ArgumentMap{{"type", read.items}});
  }
  return {.type = read.type,
          .spelling = *read.type == spelling ? "" : std::string(spelling),
          .members = std::move(members)};
}

/// The type that covers both, none where they truly differ: a whole number is a number.
std::optional<std::string_view> common_type(std::optional<std::string_view> left, std::string_view right) {
  const auto is_numeric = [](std::string_view type) { return type == "integer" || type == "number"; };
  if (left == right) {
    return left;
  }
  return left && is_numeric(*left) && is_numeric(right) ? std::optional<std::string_view>("number") : std::nullopt;
}

/// Several types in a list, of which null has no part.
SchemaReading read_types(std::span<const Value> words, const ArgumentMap& members) {
  std::vector<SchemaReading> readings;
  for (const Value& word : words) {
    SchemaReading reading = word.is_text() ? read_type_word(word.text(), members) : undeclarable("any value", members);
    if (reading.undeclarable != null_alone) {
      readings.push_back(std::move(reading));
    }
  }
  if (readings.empty()) {
    return undeclarable(null_alone, members);
  }
  std::optional<std::string_view> type = readings.front().type;
  for (const SchemaReading& reading : readings) {
    type = reading.type ? common_type(type, *reading.type) : std::nullopt;
  }
  if (readings.size() == 1) {
    return std::move(readings.front());
  }
  const bool allows_text = std::any_of(readings.begin(), readings.end(),
                                       [](const SchemaReading& reading) { return reading.type == "string"; });
  return type ? SchemaReading{.type = type, .members = members} : undeclarable("a union", members, allows_text);
}

/// What several alternatives of one type say together: the members in which they agree, and all their constants.
SchemaReading combined(std::span<const SchemaReading> readings, std::string_view type) {
  SchemaReading whole{.type = type, .spelling = readings.front().spelling, .lost = readings.front().lost};
  std::vector<Value> constants;
  bool are_constants = true;
  for (const SchemaReading& reading : readings) {
    const Value* const values = reading.members.find("enum");
    are_constants = are_constants && values != nullptr && values->is_list();
    if (are_constants) {
      constants.insert(constants.end(), values->list().begin(), values->list().end());
    }
    for (const auto& [key, value] : reading.members) {
      const auto agrees = [&name = key, &wanted = value](const SchemaReading& other) {
        const Value* const found = other.members.find(name);
        return found != nullptr && *found == wanted;
      };
      if (std::all_of(readings.begin(), readings.end(), agrees)) {
        whole.members.set(key, value);
      } else if (is_rule(key) && key != "enum" && key != "type" &&
                 std::find(whole.lost.begin(), whole.lost.end(), key) == whole.lost.end()) {
        whole.lost.push_back(key);
      }
    }
  }
  if (are_constants) {
    whole.members.set("enum", constants);
  }
  return whole;
}

/// Reads one schema, with as many steps as sensible ones take.
class SchemaReader {
 public:
  explicit SchemaReader(const Value& root) : root_(root) {}

  SchemaReading read(const Value& schema) {
    if (steps_left_ == 0) {
      return undeclarable("a schema that leads back to itself", {});
    }
    --steps_left_;
    if (schema.is_text()) {
      return read_type_word(schema.text(), {});
    }
    if (!schema.is_mapping()) {
      return schema == Value(false) ? undeclarable(nothing, {}) : undeclarable("any value", {}, true);
    }
    const ArgumentMap& members = schema.mapping();
    if (const Value* const reference = members.find("$ref"); reference != nullptr) {
      return read_reference(*reference, without(members, "$ref"));
    }
    if (const Value* const parts = members.find("allOf"); parts != nullptr && parts->is_list()) {
      return read_combination(*parts, without(members, "allOf"));
    }
    for (const std::string_view key : {"anyOf", "oneOf"}) {
      if (const Value* const alternatives = members.find(key); alternatives != nullptr && alternatives->is_list()) {
        return read_alternatives(*alternatives, without(members, key));
      }
    }
    return read_plain(members);
  }

 private:
  static SchemaReading read_plain(ArgumentMap members) {
    if (const Value* const constant = members.find("const"); constant != nullptr) {
      members.set("enum", std::vector<Value>{*constant});
      members = without(members, "const");
    }
    const Value type = member_of(members, "type");
    if (type.is_list()) {
      return read_types(type.list(), members);
    }
    return type.is_text() ? read_type_word(type.text(), std::move(members)) : read_without_type(std::move(members));
  }

  SchemaReading read_reference(const Value& reference, const ArgumentMap& others) {
    const Value* const found = reference.is_text() ? referred(root_, reference.text()) : nullptr;
    if (found == nullptr) {
      return undeclarable("a reference that leads nowhere", others);
    }
    return read(found->is_mapping() ? Value(merged(others, found->mapping())) : *found);
  }

  SchemaReading read_combination(const Value& parts, ArgumentMap members) {
    for (const Value& part : parts.list()) {
      const SchemaReading reading = read(part);
      for (const auto& [key, value] : reading.members) {
        const Value* const known = members.find(key);
        if (known != nullptr && *known != value && is_rule(key)) {
          return undeclarable("a combination", members);
        }
        members.set(key, known == nullptr ? value : *known);
      }
    }
    return read(members);
  }

  SchemaReading read_alternatives(const Value& alternatives, const ArgumentMap& others) {
    std::vector<SchemaReading> readings;
    for (const Value& alternative : alternatives.list()) {
      SchemaReading reading =
          read(alternative.is_mapping() ? Value(merged(others, alternative.mapping())) : alternative);
      if (reading.undeclarable != null_alone && reading.undeclarable != nothing) {
        readings.push_back(std::move(reading));
      }
    }
    if (readings.size() == 1) {
      return std::move(readings.front());
    }
    return readings.empty() ? undeclarable(null_alone, others) : read_several(readings, others);
  }

  static SchemaReading read_several(std::span<const SchemaReading> readings, const ArgumentMap& others) {
    std::optional<std::string_view> type = readings.front().type;
    bool are_constants = true;
    bool allows_text = false;
    bool are_alike = true;
    for (const SchemaReading& reading : readings) {
      type = reading.type ? common_type(type, *reading.type) : std::nullopt;
      are_constants = are_constants && reading.type && reading.members.contains("enum");
      allows_text = allows_text || reading.type == "string" || reading.allows_text;
      are_alike = are_alike && reading.undeclarable == readings.front().undeclarable;
    }
    if (type || are_constants) {
      return combined(readings, type.value_or("string"));
    }
    return undeclarable(are_alike && !readings.front().type ? readings.front().undeclarable : "a union", others,
                        allows_text);
  }

  const Value& root_;
  int steps_left_ = 500;
};

}  // namespace

SchemaReading read_schema(const Value& schema, const Value& root) { return SchemaReader(root).read(schema); }

bool is_rule(std::string_view key) noexcept { return std::binary_search(rule_keys.begin(), rule_keys.end(), key); }

const Value& member_of(const ArgumentMap& object, const Text& key) {
  static const Value null;
  const Value* const found = object.find(key);
  return found == nullptr ? null : *found;
}

const Value& member_of(const Value& object, const Text& key) {
  static const ArgumentMap empty;
  return member_of(object.is_mapping() ? object.mapping() : empty, key);
}

}  // namespace tool_binding::json
