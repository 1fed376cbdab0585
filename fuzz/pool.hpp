// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "choices.hpp"
#include "tool_binding/tool_registry.hpp"

/// Registries and requests of which every name, synonym, enumeration, default and argument is drawn from one small
/// pool, so that what is declared in one place crosses what is declared or sent in another all the time. A registry may
/// contradict itself in any way: names that stand twice, unknown types, bounds that are not numbers.
namespace tool_binding::fuzz {

/// Up to three tools, of different names.
[[nodiscard]] std::vector<ToolDeclaration> draw_registry(Choices& choices);

[[nodiscard]] ToolDeclaration draw_tool(Choices& choices, std::string_view name);

/// A request that mostly gives what `tool` declares.
[[nodiscard]] ArgumentMap draw_request(Choices& choices, const ToolDeclaration& tool);

/// An action's or a parameter's name: one of the pool, or two of it together, which is near to both.
[[nodiscard]] Text draw_name(Choices& choices);

}  // namespace tool_binding::fuzz
