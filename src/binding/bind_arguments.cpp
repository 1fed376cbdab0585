// SPDX-License-Identifier: MIT
#include "registry/effective_action.hpp"
#include "registry/prepared_tool.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

ArgumentMap bind_arguments(std::string_view tool, const ArgumentMap& arguments) {
  return bind_arguments(TOOLS[tool], arguments);
}

/// The tool's defaults, overwritten by what the request gives: presence decides, a null that is given is bound.
ArgumentMap bind_arguments(const ToolSpec& tool, const ArgumentMap& arguments) {
  const detail::PreparedTool& prepared = tool.prepared();
  ArgumentMap bound = prepared.bound_defaults;
  for (const auto& [name, value] : arguments) {
    if (const std::uint32_t slot = prepared.slots.find(name); slot != detail::NameIndex::absent) {
      bound.replace_at(slot, value);
    }
  }
  if (prepared.binds_action) {
    const Value& named = bound[prepared.action_slot].value;
    bound.replace_at(prepared.action_slot, detail::effective_action(tool, named));
  }
  return bound;
}

}  // namespace tool_binding
