// SPDX-License-Identifier: MIT
#include "tool_binding/tool_binding.hpp"
#include "values/forms.hpp"

namespace tool_binding {

Value action_default(std::string_view tool, std::string_view name, std::string_view action) {
  return action_default(TOOLS[tool], name, action);
}

Value action_default(const ToolSpec& tool, std::string_view name, std::string_view action) {
  const ParamSpec* const param = tool.param(name);
  if (param == nullptr) {
    TextBuilder message;
    message.append("the registry's ").append(tool.name()).append(" tool declares no ");
    append_quoted_text(message, name);
    throw LookupError(message.view());
  }
  const Value* const differing = param->action_defaults.find(action);
  return differing == nullptr ? param->default_ : *differing;
}

}  // namespace tool_binding
