// SPDX-License-Identifier: MIT
#include <algorithm>

#include "model/declared.hpp"
#include "model/maps.hpp"
#include "model/model.hpp"

namespace tool_binding::model {

namespace {

bool takes(const Handler& handler, std::string_view name) {
  const auto& parameters = handler.signature.parameters;
  return std::any_of(parameters.begin(), parameters.end(), [&](const Parameter& parameter) {
    return parameter.kind == Parameter::Kind::VAR_KEYWORD ||
           (parameter.kind == Parameter::Kind::NAMED && parameter.name == name);
  });
}

}  // namespace

ArgumentMap bind_arguments(const ToolDeclaration& tool, const ArgumentMap& arguments) {
  ArgumentMap bound;
  if (!tool.actions.empty()) {
    set(bound, ACTION_PARAM, effective_action(tool, arguments));
  }
  for (const ParamSpec& param : tool.params) {
    const Value* const value = under(arguments, param.name);
    const Value left_out = param.action_defaults.empty() ? param.default_ : Value();
    set(bound, param.name, value == nullptr ? left_out : *value);
  }
  return bound;
}

Value action_default(const ToolDeclaration& tool, std::string_view name, std::string_view action) {
  const ParamSpec* const declared = param(tool, name);
  if (declared == nullptr) {
    throw LookupError("the registry's " + std::string(tool.name) + " tool declares no " + quoted_form(name));
  }
  const Value* const differs = under(declared->action_defaults, action);
  return differs == nullptr ? declared->default_ : *differs;
}

KeywordArguments handler_kwargs(const Handler& handler, const ArgumentMap& bound, const KeywordArguments& context) {
  KeywordArguments keywords;
  for (const auto& [name, value] : bound) {
    keywords.append(name, value);
  }
  for (const auto& [name, item] : context) {
    if (takes(handler, name)) {
      set(keywords, name, item);
    }
  }
  return keywords;
}

}  // namespace tool_binding::model
