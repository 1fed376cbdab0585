// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/tool_registry.hpp"

/// The registry's schema functions.
namespace tool_binding {

/// The action that a request with these arguments runs: the declared action that a text under `ACTION_PARAM` names, or
/// that text itself when it names none; with anything else there, or nothing, the tool's default action, null when it
/// has none. The overload for a name throws UnknownToolError for a tool that `TOOLS` does not hold.
[[nodiscard]] TOOL_BINDING_API Value effective_action(std::string_view name, const ArgumentMap& arguments);
[[nodiscard]] TOOL_BINDING_API Value effective_action(const ToolSpec& tool, const ArgumentMap& arguments);

}  // namespace tool_binding
