// SPDX-License-Identifier: MIT
#include "admission/argument_value.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "tool_binding/detail/numbers.hpp"
#include "tool_binding/errors.hpp"
#include "values/forms.hpp"

namespace tool_binding {

namespace {

using Found = Finding::Kind;

// Both are faults of the declaration, not of the request.

[[noreturn, gnu::noinline]] void throw_unknown_type(const SentArgument& argument) {
  throw KeyError("parameter '" + std::string(argument.param.spec->name) + "' of " +
                 std::string(argument.tool.declared.name) + " is declared with the unknown type '" +
                 std::string(argument.param.spec->type) + "'");
}

[[noreturn, gnu::noinline]] void throw_no_number(std::string_view side, const Value& bound,
                                                 const SentArgument& argument) {
  TextBuilder message;
  message.append("the ").append(side).append(" of parameter '").append(argument.param.spec->name).append("' of ");
  append_quoted_form(message.append(argument.tool.declared.name).append(" must be a number, not "), bound);
  throw TypeError(message.view());
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

/// What of `value` is compared with an enumeration in lower case.
Text enum_key(const Value& value) {
  return text::lower_case(text::strip(value.is_text() ? value.text() : plain_form(value).view()));
}

/// The declared value that `value` names, null when it names none; that is a problem of its own.
const Text* named_value(const SentArgument& argument, const Value& value, Findings& findings) {
  const std::vector<Text>& lowered = argument.param.lowered_enum;
  const Text key = enum_key(value);
  const auto found = std::find(lowered.begin(), lowered.end(), key);
  if (found != lowered.end()) {
    return &argument.param.spec->enum_[static_cast<std::size_t>(found - lowered.begin())];
  }
  add_finding(findings, Found::unlisted_value, argument).read = value;
  return nullptr;
}

Value _enum_value(const SentArgument& argument, const Value& value, Findings& findings) {
  const Text* const declared = named_value(argument, value, findings);
  return declared == nullptr ? Value() : Value(*declared);
}

/// Every item is tried, so that each one that names no value has a problem of its own.
Value _enum_values(const SentArgument& argument, const Value& list, Findings& findings) {
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

std::partial_ordering order_to(std::string_view side, const Value& bound, const SentArgument& argument,
                               const Value& value) {
  if (!is_number(bound)) {
    throw_no_number(side, bound, argument);
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

Value _bounded(const SentArgument& argument, const Value& value, Findings& findings) {
  if (!is_number(value)) {
    return value;
  }
  const ParamSpec& spec = *argument.param.spec;
  const bool below = !spec.minimum.is_null() && order_to("minimum", spec.minimum, argument, value) < 0;
  const bool above = !below && !spec.maximum.is_null() && order_to("maximum", spec.maximum, argument, value) > 0;
  if (!below && !above) {
    return value;
  }
  Value replacement = replacement_for(argument.param, below ? spec.minimum : spec.maximum);
  Finding& finding = add_finding(findings, below ? Found::below_minimum : Found::above_maximum, argument);
  finding.read = value;
  finding.used = replacement;
  return replacement;
}

/// A value of the parameter's type, matched with its enumeration or clamped to its bounds.
Value _within(const SentArgument& argument, const Value& value, Findings& findings) {
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

Value _coerced(const SentArgument& argument, Findings& findings) {
  if (argument.param.type == nullptr) {
    throw_unknown_type(argument);
  }
  const TypeRow& type = *argument.param.type;
  if (argument.sent.kind() == type.kind) {
    return _within(argument, argument.sent, findings);
  }
  Value read = type.coerce(argument.sent);
  if (read.is_null()) {
    add_finding(findings, Found::wrong_type, argument);
    return read;
  }
  if (!argument.param.fast_path.takes(read)) {
    return _within(argument, read, findings);
  }
  return read;
}

Finding& add_finding(Findings& findings, Finding::Kind kind, const detail::CompiledTool& tool) {
  constexpr std::size_t enough_for_most = 4;
  if (findings.empty()) {
    findings.reserve(enough_for_most);
  }
  Finding& finding = findings.emplace_back();
  finding.kind = kind;
  finding.tool = &tool;
  return finding;
}

Finding& add_finding(Findings& findings, Finding::Kind kind, const SentArgument& argument) {
  Finding& finding = add_finding(findings, kind, argument.tool);
  finding.argument = argument.name;
  finding.parameter = argument.param.spec;
  finding.sent = argument.sent;
  return finding;
}

}  // namespace tool_binding
