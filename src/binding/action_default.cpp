// SPDX-License-Identifier: MIT
#include "tool_binding/tool_binding.hpp"
#include "values/forms.hpp"

namespace tool_binding {

Value action_default(std::string_view tool, std::string_view name, std::string_view action) {
  const ParamSpec* const param = TOOLS[tool].param(name);
  if (param == nullptr) {
    std::string message = "the registry's ";
    message.append(tool).append(" tool declares no ");
    append_quoted_text(message, name);
    throw LookupError(message);
  }
  const Value* const differing = param->action_defaults.find(action);
  return differing == nullptr ? param->default_ : *differing;
}

}  // namespace tool_binding
