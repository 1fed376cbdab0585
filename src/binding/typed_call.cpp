// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "tool_binding/errors.hpp"
#include "tool_binding/typed_handler.hpp"
#include "values/forms.hpp"

namespace tool_binding::detail {

namespace {

/// "the handler of search", or "the handler" where its tool is not known.
std::string handler_of(const AnsweredTool* tool) {
  return tool == nullptr ? "the handler" : "the handler of " + std::string(tool->tool.name());
}

[[noreturn]] void throw_missing(const AnsweredTool* tool, const Text& name) {
  std::string message = handler_of(tool).append(" takes ");
  append_quoted_text(message, name);
  throw LookupError(message.append(", which the call does not have"));
}

/// Throws for a keyword that is none of what the parameter takes, whatever a caller sends.
[[noreturn]] void throw_other(const AnsweredTool* tool, const Parameter& parameter, const KeywordArgument& given) {
  std::string message = handler_of(tool).append(" takes ");
  append_quoted_text(message, parameter.name);
  message.append(" as ");
  message.append(parameter.item == nullptr ? parameter.type->name()
                                           : "a context item of the type " + std::string(parameter.item->name));
  message.append(", and was given ");
  message.append(given.is_context() ? "a context item of the type " + std::string(given.item_type_name())
                                    : quoted_form(given.value()));
  throw TypeError(message);
}

void add_problem(std::string& problems, const AnsweredTool* tool, const Parameter& parameter, std::string_view must,
                 const ArgumentType& type, const Value& value) {
  problems.append(problems.empty() ? "Parameter '" : "; Parameter '").append(parameter.name).append("'");
  if (tool != nullptr) {
    problems.append(" of ").append(tool->tool.name());
  }
  append_quoted_form(problems.append(must).append(type.wanted()).append(", not "), value);
}

/// Adds a problem for a value of the right kind that the type does not hold, or for each such item of a list.
void add_problems(std::string& problems, const AnsweredTool* tool, const Parameter& parameter, const Value& value) {
  if (!value.is_list() || parameter.type->items == nullptr) {
    add_problem(problems, tool, parameter, " must be ", *parameter.type, value);
    return;
  }
  for (const Value& item : value.list()) {
    if (!parameter.type->items->reads(item)) {
      add_problem(problems, tool, parameter, " must each be ", *parameter.type->items, item);
    }
  }
}

}  // namespace

AnsweredTool::AnsweredTool(const ToolSpec& answered, const Signature& signature) : tool(answered) {
  params.reserve(signature.parameters.size());
  std::transform(signature.parameters.begin(), signature.parameters.end(), std::back_inserter(params),
                 [&](const Parameter& parameter) {
                   const ParamSpec* const param = tool.param(parameter.name);
                   return parameter.type != nullptr && param != nullptr && param->name == parameter.name ? param
                                                                                                         : nullptr;
                 });
}

const KeywordArgument& TypedCall::found(const Text& name) const {
  if (const KeywordArgument* const keyword = keywords.find(name); keyword != nullptr) {
    return *keyword;
  }
  throw_missing(tool, name);
}

const Value& TypedCall::default_at(std::size_t place, const Value& bound) const {
  const ParamSpec* const param = tool->params[place];
  if (param == nullptr || param->action_defaults.empty()) {
    return bound;
  }
  const KeywordArgument* const action = keywords.find(ACTION_PARAM);
  const bool is_named = action != nullptr && !action->is_context() && action->value().is_text();
  const Value* const differing = is_named ? param->action_defaults.find(action->value().shared_text()) : nullptr;
  return differing == nullptr ? param->default_ : *differing;
}

void TypedCall::refuse() const {
  std::string problems;
  for (std::size_t place = 0; place < signature.parameters.size(); ++place) {
    const Parameter& parameter = signature.parameters[place];
    if (parameter.type == nullptr && parameter.item == nullptr) {
      continue;
    }
    const KeywordArgument& given = keyword(place);
    if (parameter.item != nullptr ? !given.is_item(*parameter.item) : given.is_context()) {
      throw_other(tool, parameter, given);
    }
    if (parameter.type == nullptr) {
      continue;
    }
    const Value& argument = value(place);
    if (!parameter.type->kinds.contains(argument.kind())) {
      throw_other(tool, parameter, argument);
    }
    if (!parameter.type->reads(argument)) {
      add_problems(problems, tool, parameter, argument);
    }
  }
  throw ArgumentError(problems);
}

void refuse_keyword(const KeywordArguments& keywords, const Parameter& parameter) {
  const Signature signature = {.parameters = {parameter}};
  TypedCall{keywords, signature, nullptr}.refuse();
}

}  // namespace tool_binding::detail
