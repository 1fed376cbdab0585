// SPDX-License-Identifier: MIT
#include "tool_binding/tool_schemas.hpp"

#include "registry/tool_record.hpp"

namespace tool_binding {

Value effective_action(std::string_view name, const ArgumentMap& arguments) {
  return effective_action(TOOLS[name], arguments);
}

Value effective_action(const ToolSpec& tool, const ArgumentMap& arguments) {
  const Value* const named = arguments.find(ACTION_PARAM);
  return detail::effective_action(tool, named == nullptr ? Value() : *named);
}

Value detail::effective_action(const ToolSpec& tool, const Value& named) {
  if (named.is_text()) {
    const ActionSpec* const declared = tool.action(named);
    return declared == nullptr ? named : Value(declared->name);
  }
  return tool.default_action() ? Value(*tool.default_action()) : Value();
}

}  // namespace tool_binding
