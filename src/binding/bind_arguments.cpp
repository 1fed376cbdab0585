// SPDX-License-Identifier: MIT
#include <utility>

#include "compile/compiled_tool.hpp"
#include "registry/tool_record.hpp"
#include "tool_binding/tool_binding.hpp"
#include "values/forms.hpp"

namespace tool_binding {

namespace {

/// How many context items a bound map has room for, so that most keywords take over the block of the bound arguments:
/// that spares a common request a sixth of what it costs.
constexpr std::size_t room_for_context = 4;

/// The tool's defaults, overwritten by what the request gives: presence decides, a null that is given is bound.
/// `give(bound, slot, place)` gives a slot of the bound map the value at a place of the arguments.
template <class Give>
ArgumentMap _bound(const ToolSpec& tool, const ArgumentMap& arguments, const Give& give) {
  const detail::CompiledTool& compiled = detail::compiled(tool);
  auto bound = compiled.fresh_row<ArgumentMap>(room_for_context);
  for (std::size_t place = 0; place < arguments.size(); ++place) {
    if (const std::uint32_t slot = compiled.slots.find(arguments[place].name); slot != detail::NameIndex::absent) {
      give(bound, slot, place);
    }
  }
  if (compiled.binds_action) {
    if (const Value& named = bound[compiled.action_slot].value; !compiled.declares_action(named)) {
      bound.replace_at(compiled.action_slot, detail::effective_action(tool, named));
    }
  }
  return bound;
}

}  // namespace

ArgumentMap bind_arguments(std::string_view tool, const ArgumentMap& arguments) {
  return bind_arguments(TOOLS[tool], arguments);
}

ArgumentMap bind_arguments(std::string_view tool, ArgumentMap&& arguments) {
  return bind_arguments(TOOLS[tool], std::move(arguments));
}

ArgumentMap bind_arguments(const ToolSpec& tool, const ArgumentMap& arguments) {
  return _bound(tool, arguments, [&](ArgumentMap& bound, std::uint32_t slot, std::size_t place) {
    bound.replace_at(slot, arguments[place].value);
  });
}

ArgumentMap bind_arguments(const ToolSpec& tool, ArgumentMap&& arguments) {
  return _bound(tool, arguments, [&](ArgumentMap& bound, std::uint32_t slot, std::size_t place) {
    bound.swap_at(slot, arguments, place);
  });
}

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
