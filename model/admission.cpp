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

/// An argument that gives a parameter.
struct Argument {
  const Text& name;
  const Value& value;
  const ParamSpec& param;
};

/// One request on its way through admission: what was taken, changed and found wrong.
struct Request {
  const ToolDeclaration& tool;
  Admission admission = {};
  std::vector<Text> named = {};
  bool action_refused = false;

  void take(const Text& name, const Value& value);
  void settle();

 private:
  using Kind = Finding::Kind;

  void take_action(const Value& value);
  std::optional<Text> settle_action();
  void add_unknown_parameter(const Text& name, const Value& value);
  void add_unknown_action(const Value& value);
  Value admitted_value(const Argument& argument);
  Value enum_value(const Argument& argument, const Value& value);
  Value enum_values(const Argument& argument, const Value& list);
  Value bounded(const Argument& argument, const Value& value);
};

void Request::take(const Text& name, const Value& value) {
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
    add_unknown_parameter(name, value);
    return;
  }
  if (value.is_text() && !given(*param, value)) {
    return;
  }
  if (name != param->name) {
    admission.alias_hit = true;
    if (std::find(named.begin(), named.end(), param->name) != named.end() ||
        under(admission.arguments, param->name) != nullptr) {
      admission.findings.push_back(
          {.kind = Kind::synonym_left_out,
           .argument = name,
           .parameter = param,
           .sent = value,
           .message = in_quotes(name) + " was left out: " + in_quotes(param->name) + " was given too"});
      return;
    }
    admission.findings.push_back({.kind = Kind::synonym_read,
                                  .argument = name,
                                  .parameter = param,
                                  .sent = value,
                                  .message = in_quotes(name) + " was read as " + in_quotes(param->name)});
  } else {
    named.push_back(name);
  }
  if (const Value taken = admitted_value({name, value, *param}); !taken.is_null()) {
    set(admission.arguments, param->name, taken);
  }
}

void Request::settle() {
  const std::optional<Text> action = settle_action();
  if (action || tool.actions.empty()) {
    for (const ParamSpec* const param : missing(tool, action, admission.arguments)) {
      admission.findings.push_back({.kind = Kind::missing_parameter,
                                    .parameter = param,
                                    .action = action.value_or(Text()),
                                    .message = missing_problem(tool, action, *param)});
    }
  }
}

void Request::take_action(const Value& value) {
  const ActionSpec* const declared = action(tool, value);
  if (declared == nullptr) {
    action_refused = true;
    add_unknown_action(value);
    return;
  }
  if (value != Value(declared->name)) {
    admission.alias_hit = true;
    admission.findings.push_back(
        {.kind = Kind::action_synonym_read,
         .argument = ACTION_PARAM,
         .sent = value,
         .used = declared->name,
         .message = "the action " + in_quotes(plain_form(value)) + " was read as " + in_quotes(declared->name)});
  }
  set(admission.arguments, ACTION_PARAM, Value(declared->name));
}

/// The action that the request runs, the tool's default among them.
std::optional<Text> Request::settle_action() {
  if (const Value* const stored = under(admission.arguments, ACTION_PARAM)) {
    return plain_form(*stored);
  }
  if (action_refused) {
    return std::nullopt;
  }
  const Value default_action = effective_action(tool, {});
  if (default_action.is_text()) {
    set(admission.arguments, ACTION_PARAM, default_action);
    return default_action.shared_text();
  }
  if (!tool.actions.empty()) {
    admission.findings.push_back(
        {.kind = Kind::missing_action,
         .message = std::string(tool.name) + " needs an 'action': one of " + joined(action_names(tool), ", ")});
  }
  return std::nullopt;
}

void Request::add_unknown_action(const Value& value) {
  if (tool.actions.empty()) {
    admission.findings.push_back({.kind = Kind::unexpected_action,
                                  .argument = ACTION_PARAM,
                                  .sent = value,
                                  .message = std::string(tool.name) + " takes no 'action'"});
    return;
  }
  const Text plain = plain_form(value);
  const std::optional<Text> near = nearest(plain, action_names(tool));
  const std::string error = "Unknown action " + in_quotes(plain) + " for " + std::string(tool.name) + ": one of " +
                            joined(action_names(tool), ", ");
  admission.findings.push_back({.kind = Kind::unknown_action,
                                .argument = ACTION_PARAM,
                                .sent = value,
                                .proposal = near.value_or(Text()),
                                .message = near ? error + ". Did you mean " + in_quotes(*near) + "?" : error});
}

void Request::add_unknown_parameter(const Text& name, const Value& value) {
  const std::vector<Text> names = param_names(tool);
  std::vector<Text> candidates = names;
  for (const ParamSpec& param : tool.params) {
    candidates.insert(candidates.end(), param.synonyms.begin(), param.synonyms.end());
  }
  std::optional<Text> near = nearest(name, candidates);
  if (near && param(tool, *near) != nullptr) {
    near = param(tool, *near)->name;
  }
  admission.findings.push_back(
      {.kind = Kind::unknown_parameter,
       .argument = name,
       .sent = value,
       .proposal = near.value_or(Text()),
       .message = "Unknown parameter " + in_quotes(name) + " for " + std::string(tool.name) + "." +
                  (near && !near->empty() ? " Did you mean " + in_quotes(*near) + "?" : "") +
                  (names.empty() ? " It takes none." : " It takes: " + joined(names, ", ") + ".")});
}

/// The value as the handler takes it; null when it cannot be read, with a problem.
Value Request::admitted_value(const Argument& argument) {
  const ParamSpec& param = argument.param;
  const Type& type = type_named(param.type);
  std::optional<Value> read = type.coerced(argument.value);
  if (!read) {
    admission.findings.push_back({.kind = Kind::wrong_type,
                                  .argument = argument.name,
                                  .parameter = &param,
                                  .sent = argument.value,
                                  .message = "Parameter " + in_quotes(param.name) + " of " + std::string(tool.name) +
                                             " must be " + std::string(type.words) + ", not " +
                                             quoted_form(argument.value)});
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
    return bounded(argument, *read);
  }
  return param.type == "array" ? enum_values(argument, *read) : enum_value(argument, *read);
}

Value Request::enum_value(const Argument& argument, const Value& value) {
  const ParamSpec& param = argument.param;
  const Text plain = plain_form(value);
  const Text key = text::lower_case(text::strip(plain));
  for (const Text& declared : param.enum_) {
    if (text::lower_case(declared) == key) {
      return declared;
    }
  }
  admission.findings.push_back({.kind = Kind::unlisted_value,
                                .argument = argument.name,
                                .parameter = &param,
                                .sent = argument.value,
                                .read = value,
                                .message = "Parameter " + in_quotes(param.name) + " of " + std::string(tool.name) +
                                           " must" + (param.type == "array" ? " each" : "") +
                                           " be one of: " + joined(param.enum_, ", ") + "; not " + quoted_form(plain)});
  return {};
}

Value Request::enum_values(const Argument& argument, const Value& list) {
  std::vector<Value> declared;
  for (const Value& item : list.list()) {
    declared.push_back(enum_value(argument, item));
  }
  const bool is_refused =
      std::any_of(declared.begin(), declared.end(), [](const Value& item) { return item.is_null(); });
  return is_refused ? Value() : Value(declared);
}

Value Request::bounded(const Argument& argument, const Value& value) {
  const ParamSpec& param = argument.param;
  if (!value.is_integer() && !value.is_floating()) {
    return value;
  }
  const bool below = !param.minimum.is_null() && compare_numbers(value, param.minimum) < 0;
  const bool above = !below && !param.maximum.is_null() && compare_numbers(value, param.maximum) > 0;
  if (!below && !above) {
    return value;
  }
  Value used = replacement_by(param, below ? param.minimum : param.maximum);
  admission.findings.push_back({.kind = below ? Kind::below_minimum : Kind::above_maximum,
                                .argument = argument.name,
                                .parameter = &param,
                                .sent = argument.value,
                                .read = value,
                                .used = used,
                                .message = in_quotes(param.name) + " " + quoted_form(value) + " is " +
                                           (below ? "below the minimum" : "above the maximum") + ": " +
                                           quoted_form(used) + " was used"});
  return used;
}

}  // namespace

Admission admit(const ToolDeclaration& tool, const ArgumentMap& arguments) {
  Request request{tool};
  for (const auto& [name, value] : arguments) {
    request.take(name, value);
  }
  request.settle();
  return request.admission;
}

NormalizedArguments normalize_arguments(const ToolDeclaration& tool, const ArgumentMap& arguments) {
  const Admission admission = admit(tool, arguments);
  std::vector<std::string> notes;
  std::vector<std::string> problems;
  for (const Finding& finding : admission.findings) {
    (is_problem(finding.kind) ? problems : notes).push_back(finding.message);
  }
  if (!problems.empty()) {
    throw ArgumentError(joined(problems, "; "));
  }
  return NormalizedArguments(admission.arguments, notes, admission.alias_hit);
}

}  // namespace tool_binding::model
