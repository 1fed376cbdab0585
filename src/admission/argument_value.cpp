// SPDX-License-Identifier: MIT
#include "admission/argument_value.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "tool_binding/errors.hpp"
#include "values/forms.hpp"
#include "values/numbers.hpp"

namespace tool_binding {

namespace {

using Found = Finding::Kind;

Finding finding_of(Found kind, const Argument& argument) {
  return {.kind = kind,
          .argument = argument.name,
          .parameter = argument.param.spec,
          .sent = argument.sent,
          .tool = &argument.tool};
}

/// A type word without a row is a fault of the declaration, not of the request.
const TypeRow& type_of(const Argument& argument) {
  const detail::CompiledParam& param = argument.param;
  if (param.type == nullptr) {
    throw KeyError("no type is named '" + std::string(param.spec->type) + "', which parameter '" +
                   std::string(param.spec->name) + "' of " + std::string(argument.tool.declared.name) +
                   " is declared with");
  }
  return *param.type;
}

Value as_texts(const Value& list) {
  const std::span<const Value> items = list.list();
  if (std::all_of(items.begin(), items.end(), [](const Value& item) { return item.is_text(); })) {
    return list;
  }
  std::vector<Value> texts;
  texts.reserve(items.size());
  for (const Value& item : items) {
    texts.emplace_back(plain_form(item));
  }
  return texts;
}

/// The declared value that `value` names, null when it names none; that is a problem of its own.
const Text* named_value(const Argument& argument, const Value& value, Findings& findings) {
  const std::vector<Text>& lowered = argument.param.lowered_enum;
  const Text key = text::lower_case(text::strip(plain_form(value)));
  const auto found = std::find(lowered.begin(), lowered.end(), key);
  if (found != lowered.end()) {
    return &argument.param.spec->enum_[static_cast<std::size_t>(found - lowered.begin())];
  }
  Finding finding = finding_of(Found::unlisted_value, argument);
  finding.read = value;
  add_finding(findings, std::move(finding));
  return nullptr;
}

Value _enum_value(const Argument& argument, const Value& value, Findings& findings) {
  const Text* const declared = named_value(argument, value, findings);
  return declared == nullptr ? Value() : Value(*declared);
}

/// Every item is tried, so that each one that names no value has a problem of its own.
Value _enum_values(const Argument& argument, const Value& list, Findings& findings) {
  const std::span<const Value> items = list.list();
  std::vector<Value> declared;
  declared.reserve(items.size());
  for (const Value& item : items) {
    if (const Text* const named = named_value(argument, item, findings)) {
      declared.emplace_back(*named);
    }
  }
  return declared.size() == items.size() ? Value(std::move(declared)) : Value();
}

/// Order of `value` and a bound. A bound that is not a number is a fault of the declaration.
std::partial_ordering order_to(std::string_view side, const Value& bound, const Argument& argument,
                               const Value& value) {
  if (!is_number(bound)) {
    std::string message = "the ";
    message.append(side).append(" of parameter '").append(argument.param.spec->name).append("' of ");
    append_quoted_form(message.append(argument.tool.declared.name).append(" must be a number, not "), bound);
    throw TypeError(message);
  }
  return compare_numbers(value, bound);
}

/// A bound as a value of the parameter's type; a fraction is cut toward zero.
Value replacement_for(const detail::CompiledParam& param, const Value& bound) {
  if (param.type->type == TypeWord::integer) {
    return bound.is_integer() ? bound : Value(Integer::truncated(bound.floating()));
  }
  return bound.is_floating() ? bound : Value(bound.integer().to_double());
}

Value _bounded(const Argument& argument, const Value& value, Findings& findings) {
  if (!is_number(value)) {
    return value;
  }
  const ParamSpec& spec = *argument.param.spec;
  const bool below = !spec.minimum.is_null() && order_to("minimum", spec.minimum, argument, value) < 0;
  const bool above = !below && !spec.maximum.is_null() && order_to("maximum", spec.maximum, argument, value) > 0;
  if (!below && !above) {
    return value;
  }
  Finding finding = finding_of(below ? Found::below_minimum : Found::above_maximum, argument);
  finding.read = value;
  finding.used = replacement_for(argument.param, below ? spec.minimum : spec.maximum);
  Value used = finding.used;
  add_finding(findings, std::move(finding));
  return used;
}

/// A value of the parameter's type, matched with its enumeration or clamped to its bounds.
Value _within(const Argument& argument, const Value& value, Findings& findings) {
  const bool has_enumeration = !argument.param.lowered_enum.empty();
  if (argument.param.type->type != TypeWord::array) {
    return has_enumeration ? _enum_value(argument, value, findings) : _bounded(argument, value, findings);
  }
  if (!argument.param.items_are_texts) {
    return has_enumeration ? _enum_values(argument, value, findings) : value;
  }
  const Value texts = as_texts(value);
  return has_enumeration ? _enum_values(argument, texts, findings) : texts;
}

}  // namespace

Value _coerced(const Argument& argument, Findings& findings) {
  const TypeRow& type = type_of(argument);
  if (argument.sent.kind() == type.kind) {
    return _within(argument, argument.sent, findings);
  }
  Value read = type.coerce(argument.sent);
  if (read.is_null()) {
    add_finding(findings, finding_of(Found::wrong_type, argument));
    return read;
  }
  return argument.param.fast_path.takes(read) ? read : _within(argument, read, findings);
}

void add_finding(Findings& findings, Finding finding) {
  constexpr std::size_t enough_for_most = 4;
  if (findings.empty()) {
    findings.reserve(enough_for_most);
  }
  findings.push_back(std::move(finding));
}

}  // namespace tool_binding
