// SPDX-License-Identifier: MIT
#include "model/declared.hpp"

#include <algorithm>

#include "model/maps.hpp"
#include "model/model.hpp"
#include "text/lower_case.hpp"
#include "text/white_space.hpp"

namespace tool_binding::model {

namespace {

bool holds(const std::vector<Text>& texts, std::string_view text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Whether one of the action's names is `key` once it is in lower case.
bool is_named(const ActionSpec& action, const Text& key) {
  std::vector<Text> names = {action.name};
  names.insert(names.end(), action.synonyms.begin(), action.synonyms.end());
  return std::any_of(names.begin(), names.end(), [&](const Text& name) { return text::lower_case(name) == key; });
}

bool required_by(const ParamSpec& param, std::optional<std::string_view> action) {
  return param.required || (action && holds(param.required_for, *action));
}

}  // namespace

const ToolDeclaration& tool_named(std::span<const ToolDeclaration> tools, std::string_view name) {
  for (const ToolDeclaration& tool : tools) {
    if (tool.name == name) {
      return tool;
    }
  }
  throw KeyError("no tool is named '" + std::string(name) + "'");
}

const ParamSpec* param(const ToolDeclaration& tool, std::string_view name) {
  for (const ParamSpec& param : tool.params) {
    if (param.name == name) {
      return &param;
    }
  }
  for (const ParamSpec& param : tool.params) {
    if (holds(param.synonyms, name)) {
      return &param;
    }
  }
  return nullptr;
}

const ActionSpec* action(const ToolDeclaration& tool, const Value& value) {
  if (!value.is_text()) {
    return nullptr;
  }
  for (const ActionSpec& action : tool.actions) {
    if (action.name == value.text()) {
      return &action;
    }
  }
  const Text key = text::lower_case(text::strip(value.text()));
  for (const ActionSpec& action : tool.actions) {
    if (is_named(action, key)) {
      return &action;
    }
  }
  return nullptr;
}

std::vector<Text> param_names(const ToolDeclaration& tool) {
  std::vector<Text> names;
  for (const ParamSpec& param : tool.params) {
    names.push_back(param.name);
  }
  return names;
}

std::vector<Text> action_names(const ToolDeclaration& tool) {
  std::vector<Text> names;
  for (const ActionSpec& action : tool.actions) {
    names.push_back(action.name);
  }
  return names;
}

bool given(const ParamSpec& param, const Value& value) {
  if (param.blank_is_value) {
    return !value.is_null();
  }
  if (value.is_text()) {
    return !text::strip(value.text()).empty();
  }
  return !value.is_null() && !(value.is_list() && value.list().empty());
}

std::vector<const ParamSpec*> missing(const ToolDeclaration& tool, std::optional<std::string_view> action,
                                      const ArgumentMap& arguments) {
  std::vector<const ParamSpec*> lacking;
  for (const ParamSpec& param : tool.params) {
    const Value* const value = under(arguments, param.name);
    if (required_by(param, action) && !given(param, value == nullptr ? Value() : *value)) {
      lacking.push_back(&param);
    }
  }
  return lacking;
}

std::string missing_problem(const ToolDeclaration& tool, std::optional<std::string_view> action,
                            const ParamSpec& param) {
  std::string subject(tool.name);
  if (action && !action->empty()) {
    subject += " '" + std::string(*action) + "'";
  }
  return subject + " needs '" + std::string(param.name) + "'";
}

std::optional<std::string> missing_arguments(const ToolDeclaration& tool, std::optional<std::string_view> action,
                                             const ArgumentMap& arguments) {
  std::vector<std::string> problems;
  for (const ParamSpec* const param : missing(tool, action, arguments)) {
    problems.push_back(missing_problem(tool, action, *param));
  }
  return problems.empty() ? std::nullopt : std::optional(joined(problems, "; "));
}

/// A context item says something, whatever it is.
std::optional<std::string> missing_arguments(const ToolDeclaration& tool, std::optional<std::string_view> action,
                                             const KeywordArguments& keywords) {
  ArgumentMap arguments;
  for (const auto& [name, keyword] : keywords) {
    arguments.append(name, keyword.is_context() ? Value(true) : keyword.value());
  }
  return missing_arguments(tool, action, arguments);
}

Value effective_action(const ToolDeclaration& tool, const ArgumentMap& arguments) {
  const Value* const named = under(arguments, ACTION_PARAM);
  if (named != nullptr && named->is_text()) {
    const ActionSpec* const declared = action(tool, *named);
    return declared == nullptr ? *named : Value(declared->name);
  }
  return tool.default_action ? Value(*tool.default_action) : Value();
}

}  // namespace tool_binding::model
