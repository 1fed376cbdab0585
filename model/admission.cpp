// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <compare>

#include "model/coercion.hpp"
#include "model/declared.hpp"
#include "model/maps.hpp"
#include "model/model.hpp"
#include "model/near_name.hpp"
#include "text/lower_case.hpp"
#include "text/white_space.hpp"

namespace tool_binding::model {

namespace {

std::string in_quotes(std::string_view name) { return "'" + std::string(name) + "'"; }

std::partial_ordering compare_exactly(const Integer& left, double right) {
  if (std::isnan(right)) {
    return std::partial_ordering::unordered;
  }
  if (std::isinf(right)) {
    return 0.0 <=> right;
  }
  const std::strong_ordering whole = left <=> Integer::truncated(right);
  return whole != 0 ? std::partial_ordering(whole) : 0.0 <=> right - std::trunc(right);
}

std::partial_ordering compare_numbers(const Value& left, const Value& right) {
  if (!right.is_integer() && !right.is_floating()) {
    throw TypeError("a bound is a number");
  }
  if (left.is_integer()) {
    return right.is_integer() ? std::partial_ordering(left.integer() <=> right.integer())
                              : compare_exactly(left.integer(), right.floating());
  }
  return right.is_integer() ? 0 <=> compare_exactly(right.integer(), left.floating())
                            : left.floating() <=> right.floating();
}

/// A bound as a value of its parameter's type.
Value replacement_by(const ParamSpec& param, const Value& bound) {
  if (param.type == "integer") {
    return bound.is_integer() ? bound : Value(Integer::truncated(bound.floating()));
  }
  return bound.is_integer() ? Value(to_double(bound.integer())) : bound;
}

/// One request on its way through admission: what was taken, changed and found wrong.
struct Admission {
  const ToolDeclaration& tool;
  ArgumentMap arguments = {};
  std::vector<std::string> notes = {};
  std::vector<std::string> problems = {};
  bool alias_hit = false;
  std::vector<Text> named = {};
  bool action_refused = false;

  void take(const Text& name, const Value& value);
  NormalizedArguments result();

 private:
  void take_action(const Value& value);
  std::optional<std::string> settle_action();
  [[nodiscard]] std::string unknown_action(const Value& value) const;
  [[nodiscard]] std::string unknown_parameter(const Text& name) const;
  Value admitted_value(const ParamSpec& param, const Value& value);
  Value enum_value(const ParamSpec& param, const Text& plain);
  Value enum_values(const ParamSpec& param, const Value& list);
  Value bounded(const ParamSpec& param, const Value& value);
};

void Admission::take(const Text& name, const Value& value) {
  if (name == REPO_ROOT_ARGUMENT || name == "repo" || value.is_null()) {
    return;
  }
  if (name == ACTION_PARAM) {
    if (!value.is_text() || !text::strip(value.text()).empty()) {
      take_action(value);
    }
    return;
  }
  const ParamSpec* const param = model::param(tool, name);
  if (param == nullptr) {
    problems.push_back(unknown_parameter(name));
    return;
  }
  if (value.is_text() && !given(*param, value)) {
    return;
  }
  if (name != param->name) {
    alias_hit = true;
    if (std::find(named.begin(), named.end(), param->name) != named.end() || under(arguments, param->name) != nullptr) {
      notes.push_back(in_quotes(name) + " was left out: " + in_quotes(param->name) + " was given too");
      return;
    }
    notes.push_back(in_quotes(name) + " was read as " + in_quotes(param->name));
  } else {
    named.push_back(name);
  }
  if (const Value taken = admitted_value(*param, value); !taken.is_null()) {
    set(arguments, param->name, taken);
  }
}

NormalizedArguments Admission::result() {
  const std::optional<std::string> action = settle_action();
  if (action || tool.actions.empty()) {
    for (const std::string& problem : missing(tool, action, arguments)) {
      problems.push_back(problem);
    }
  }
  if (!problems.empty()) {
    throw ArgumentError(joined(problems, "; "));
  }
  return NormalizedArguments(arguments, notes, alias_hit);
}

void Admission::take_action(const Value& value) {
  const ActionSpec* const named_action = action(tool, value);
  if (named_action == nullptr) {
    action_refused = true;
    problems.push_back(tool.actions.empty() ? std::string(tool.name) + " takes no 'action'" : unknown_action(value));
    return;
  }
  if (value != Value(named_action->name)) {
    alias_hit = true;
    notes.push_back("the action " + in_quotes(plain_form(value)) + " was read as " + in_quotes(named_action->name));
  }
  set(arguments, ACTION_PARAM, Value(named_action->name));
}

/// The action that the request runs, the tool's default among them.
std::optional<std::string> Admission::settle_action() {
  if (const Value* const stored = under(arguments, ACTION_PARAM)) {
    return std::string(plain_form(*stored));
  }
  if (action_refused) {
    return std::nullopt;
  }
  const Value default_action = effective_action(tool, {});
  if (default_action.is_text()) {
    set(arguments, ACTION_PARAM, default_action);
    return std::string(default_action.text());
  }
  if (!tool.actions.empty()) {
    problems.push_back(std::string(tool.name) + " needs an 'action': one of " + joined(action_names(tool), ", "));
  }
  return std::nullopt;
}

std::string Admission::unknown_action(const Value& value) const {
  const Text plain = plain_form(value);
  const std::string error = "Unknown action " + in_quotes(plain) + " for " + std::string(tool.name) + ": one of " +
                            joined(action_names(tool), ", ");
  const std::optional<Text> near = nearest(plain, action_names(tool));
  return near ? error + ". Did you mean " + in_quotes(*near) + "?" : error;
}

std::string Admission::unknown_parameter(const Text& name) const {
  const std::vector<Text> names = param_names(tool);
  std::vector<Text> candidates = names;
  for (const ParamSpec& param : tool.params) {
    candidates.insert(candidates.end(), param.synonyms.begin(), param.synonyms.end());
  }
  std::optional<Text> near = nearest(name, candidates);
  if (near && param(tool, *near) != nullptr) {
    near = param(tool, *near)->name;
  }
  return "Unknown parameter " + in_quotes(name) + " for " + std::string(tool.name) + "." +
         (near && !near->empty() ? " Did you mean " + in_quotes(*near) + "?" : "") +
         (names.empty() ? " It takes none." : " It takes: " + joined(names, ", ") + ".");
}

/// The value as the handler takes it; null when it cannot be read, with a problem.
Value Admission::admitted_value(const ParamSpec& param, const Value& value) {
  const Type& type = type_named(param.type);
  std::optional<Value> read = type.coerced(value);
  if (!read) {
    problems.push_back("Parameter " + in_quotes(param.name) + " of " + std::string(tool.name) + " must be " +
                       std::string(type.words) + ", not " + quoted_form(value));
    return {};
  }
  if (param.type == "array" && param.items_type && *param.items_type == "string") {
    std::vector<Value> texts;
    for (const Value& item : read->list()) {
      texts.emplace_back(plain_form(item));
    }
    read = texts;
  }
  if (param.enum_.empty()) {
    return bounded(param, *read);
  }
  return param.type == "array" ? enum_values(param, *read) : enum_value(param, plain_form(*read));
}

Value Admission::enum_value(const ParamSpec& param, const Text& plain) {
  const Text key = text::lower_case(text::strip(plain));
  for (const Text& declared : param.enum_) {
    if (text::lower_case(declared) == key) {
      return declared;
    }
  }
  problems.push_back("Parameter " + in_quotes(param.name) + " of " + std::string(tool.name) + " must" +
                     (param.type == "array" ? " each" : "") + " be one of: " + joined(param.enum_, ", ") + "; not " +
                     quoted_form(plain));
  return {};
}

Value Admission::enum_values(const ParamSpec& param, const Value& list) {
  std::vector<Value> declared;
  for (const Value& item : list.list()) {
    declared.push_back(enum_value(param, plain_form(item)));
  }
  const bool is_refused =
      std::any_of(declared.begin(), declared.end(), [](const Value& item) { return item.is_null(); });
  return is_refused ? Value() : Value(declared);
}

Value Admission::bounded(const ParamSpec& param, const Value& value) {
  if (!value.is_integer() && !value.is_floating()) {
    return value;
  }
  const bool below = !param.minimum.is_null() && compare_numbers(value, param.minimum) < 0;
  const bool above = !below && !param.maximum.is_null() && compare_numbers(value, param.maximum) > 0;
  if (!below && !above) {
    return value;
  }
  Value used = replacement_by(param, below ? param.minimum : param.maximum);
  notes.push_back(in_quotes(param.name) + " " + quoted_form(value) + " is " +
                  (below ? "below the minimum" : "above the maximum") + ": " + quoted_form(used) + " was used");
  return used;
}

}  // namespace

NormalizedArguments normalize_arguments(const ToolDeclaration& tool, const ArgumentMap& arguments) {
  Admission admission{tool};
  for (const auto& [name, value] : arguments) {
    admission.take(name, value);
  }
  return admission.result();
}

}  // namespace tool_binding::model
