// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <utility>

#include "importing.hpp"
#include "tool_binding/admission.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/tool_binding.hpp"
#include "tool_binding/utils/text_values.hpp"

namespace tool_binding::json {

namespace {

constexpr auto property_keys =
    std::to_array<std::string_view>({"type", "description", "items", "enum", "minimum", "maximum", "exclusiveMinimum",
                                     "exclusiveMaximum", "default", "required", "nullable", "optional"});
constexpr auto item_keys = std::to_array<std::string_view>({"type", "enum"});

/// "one", "a text": with its article.
std::string with_article(std::string_view type) {
  return (type == "integer" || type == "array" ? "an " : "a ") + std::string(type);
}

/// What the parameter alone would make of a default that was sent, null where it would refuse it.
Value as_admitted(const ParamSpec& param, const Value& value) {
  const ToolSpec alone({.name = "default",
                        .params = {{.name = "value",
                                    .type = param.type,
                                    .items_type = param.items_type,
                                    .enum_ = param.enum_,
                                    .blank_is_value = true}}});
  try {
    const Admission admission = admit(alone, {{"value", value}});
    const Value* const found = admission.is_admitted() ? admission.arguments().find("value") : nullptr;
    return found == nullptr ? Value() : *found;
  } catch (const std::overflow_error&) {
    return {};
  }
}

/// Whether the parameter would take the value as it is.
bool is_of_type(const Value& value, const ParamSpec& param) {
  return param.enum_.empty() &&
         ((param.type == "string" && value.is_text()) || (param.type == "boolean" && value.is_boolean()) ||
          (param.type == "integer" && value.is_integer()) || (param.type == "number" && value.is_floating()));
}

}  // namespace

void Importing::read_property(const Text& name, const Value& schema, const std::string& place) {
  if (name == ACTION_PARAM) {
    read_actions(schema, place);
    return;
  }
  if (is_reserved_name(name)) {
    leave_out(name, "has a reserved name", place);
    return;
  }
  if (name.empty()) {
    leave_out(name, "has no name", place);
    return;
  }
  const SchemaReading reading = read_schema(schema, listed_.schema);
  ParamSpec param{.name = name,
                  .type = reading.type.value_or("string"),
                  .description = text_of(reading.members, "description"),
                  .required = required_.contains(name)};
  if (reading.type) {
    read_rules(param, reading, place);
  } else if (undeclarable_ == Undeclarable::left_out) {
    leave_out(name, "cannot be " + reading.undeclarable, place);
    return;
  } else {
    read_unsayable(param, reading, place);
  }
  tool_.params.push_back(std::move(param));
}

/// Leaves out a parameter that cannot be declared, and its tool with it where calls need it.
void Importing::leave_out(const Text& name, const std::string& reason, const std::string& place) {
  if (required_.contains(name)) {
    remarks_.leave_out(quoted_form(Value(name)) + ", which is required, " + reason);
  } else {
    remarks_.add(Kind::rule_lost, name, place, "is left out: it " + reason);
  }
}

/// Lets the parameter take text, and tells callers so.
void Importing::read_unsayable(ParamSpec& param, const SchemaReading& reading, const std::string& place) {
  const std::string_view hint = reading.allows_text ? "Send it as text." : "Send it as text that holds JSON.";
  param.description = std::string(param.description).append(param.description.empty() ? "" : "\n").append(hint);
  remarks_.add(Kind::rule_lost, param.name, place,
               "cannot be " + reading.undeclarable +
                   (reading.allows_text ? ": it takes text" : ": it takes text that holds JSON"));
  if (const Value& value = member_of(reading.members, "default"); !value.is_null()) {
    param.default_ = value.is_text() ? value : Value(write(value));
    param.blank_is_value = is_blank(param.default_.text());
  }
}

void Importing::read_rules(ParamSpec& param, const SchemaReading& reading, const std::string& place) {
  const ArgumentMap& members = reading.members;
  if (!reading.spelling.empty()) {
    remarks_.add(Kind::annotation, param.name, member_place(place, "type"),
                 quoted_form(Value(reading.spelling)) + " is read as " + quoted_form(Value(*reading.type)));
  }
  if (const Value* const items = members.find("items"); items != nullptr && param.type == "array") {
    read_items(param, *items, member_place(place, "items"));
  }
  if (const Value* const values = members.find("enum"); values != nullptr && !values->is_null()) {
    take_enumeration(
        param, param.type == "array" ? read_item_enumeration(*values) : read_enumeration(param.type.view(), *values),
        member_place(place, "enum"));
  }
  read_bounds(param, members, place);
  remark_on_others(param.name, members, property_keys, place);
  for (const Text& key : reading.lost) {
    remarks_.add(Kind::rule_lost, param.name, place, quoted_form(Value(key)) + " of its alternatives is not kept");
  }
  if (const Value& value = member_of(members, "default"); !value.is_null()) {
    read_default(param, value, member_place(place, "default"));
  }
  decide_on_blank(param, members);
}

/// Items are taken as they come, but for texts: what else a schema says of them is remarked upon.
void Importing::read_items(ParamSpec& param, const Value& items, const std::string& place) {
  const SchemaReading reading = read_schema(items, listed_.schema);
  if (reading.type == "string") {
    param.items_type = "string";
  } else if (reading.type || reading.undeclarable != "any value") {
    const std::string what = reading.type ? with_article(*reading.type) : reading.undeclarable;
    remarks_.add(Kind::rule_lost, param.name, place,
                 "items are taken as they come: that each is " + what + " has no effect");
  }
  if (const Value* const values = reading.members.find("enum"); reading.type && values != nullptr) {
    take_enumeration(param, read_item_enumeration(*values), member_place(place, "enum"));
  }
  if (reading.type == "string") {
    remark_on_others(param.name, reading.members, item_keys, place);
  }
}

void Importing::take_enumeration(ParamSpec& param, EnumerationReading values, const std::string& place) {
  if (!values.lost.empty()) {
    remarks_.add(Kind::rule_lost, param.name, place, std::move(values.lost));
  }
  for (std::string& words : values.noticed) {
    remarks_.add(Kind::reading, param.name, place, std::move(words));
  }
  param.type = values.type;
  param.enum_ = std::move(values.texts);
  param.minimum = values.minimum;
  param.maximum = values.maximum;
}

void Importing::read_bounds(ParamSpec& param, const ArgumentMap& members, const std::string& place) {
  struct BoundKey {
    std::string_view key;
    Value ParamSpec::*bound;
    bool is_exclusive;
  };
  constexpr BoundKey keys[] = {{"minimum", &ParamSpec::minimum, false},
                               {"maximum", &ParamSpec::maximum, false},
                               {"exclusiveMinimum", &ParamSpec::minimum, true},
                               {"exclusiveMaximum", &ParamSpec::maximum, true}};
  for (const auto& [key, bound, is_exclusive] : keys) {
    if (const Value& value = member_of(members, key); !value.is_null() && !value.is_boolean()) {
      read_bound(param, bound, value, is_exclusive, member_place(place, key));
    } else if (value == Value(true)) {
      remarks_.add(Kind::rule_lost, param.name, member_place(place, key), "the bound itself is allowed");
    }
  }
}

void Importing::read_bound(ParamSpec& param, Value ParamSpec::*bound, const Value& value, bool is_exclusive,
                           const std::string& place) {
  const bool takes_bounds = (param.type == "integer" || param.type == "number") && param.enum_.empty();
  const auto whole = value.to_int64();
  constexpr std::int64_t far = std::int64_t{1} << 53U;
  if (!takes_bounds || !(value.is_integer() || value.is_floating()) || !(param.*bound).is_null()) {
    remarks_.add(Kind::rule_lost, param.name, place, "the bound " + quoted_form(value) + " has no effect");
  } else if (!is_exclusive) {
    param.*bound = value;
  } else if (param.type == "integer" && whole && *whole > -far && *whole < far) {
    param.*bound = *whole + (bound == &ParamSpec::minimum ? 1 : -1);
  } else {
    param.*bound = value;
    remarks_.add(Kind::rule_lost, param.name, place, "the bound " + quoted_form(value) + " itself is allowed");
  }
}

/// A default is what the parameter would make of it if it were sent.
void Importing::read_default(ParamSpec& param, const Value& value, const std::string& place) {
  if (is_of_type(value, param)) {
    param.default_ = value;
    return;
  }
  param.default_ = as_admitted(param, value);
  if (param.default_.is_null()) {
    remarks_.add(Kind::reading, param.name, place,
                 "its default " + quoted_form(value) + " is not kept: " +
                     (param.enum_.empty() ? "it is not " + with_article(param.type) : "it is none of the values"));
  }
}

/// Blank text is a value where it is the default, one of the values, or a text that calls need and no rule forbids.
void Importing::decide_on_blank(ParamSpec& param, const ArgumentMap& members) const {
  if (param.type != "string") {
    return;
  }
  const bool is_default = param.default_.is_text() && is_blank(param.default_.text());
  const bool is_listed = std::any_of(param.enum_.begin(), param.enum_.end(), [](const Text& v) { return v.empty(); });
  const Value& least = member_of(members, "minLength");
  const bool is_forbidden = (least.is_integer() && least.integer() > 0) || members.contains("pattern") ||
                            members.contains("format") || !param.enum_.empty();
  param.blank_is_value = is_default || is_listed || (param.required && !is_forbidden);
}

}  // namespace tool_binding::json
