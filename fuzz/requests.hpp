// SPDX-License-Identifier: MIT
#pragma once

#include "choices.hpp"
#include "tool_binding/tool_registry.hpp"

/// Tools and requests for them, such that most of a request concerns what its tool declares.
namespace tool_binding::fuzz {

/// Bounds are numbers, and every type word is one of the five: what a check of the registry refuses is left out.
[[nodiscard]] ToolDeclaration make_tool(Choices& choices);

[[nodiscard]] ArgumentMap make_request(Choices& choices, const ToolDeclaration& tool);

/// Whether what admission hands out has its parameter's type and passes it again as it is. It need not where the
/// registry contradicts itself: a minimum above the maximum, a bound that is not of its parameter's type, an
/// action that requests cannot name, a name declared twice or one that admission keeps for itself.
[[nodiscard]] bool is_consistent(const ToolDeclaration& tool);

/// Whether a number that no double can hold stands in the request or among the bounds.
[[nodiscard]] bool has_wide_integer(const ToolDeclaration& tool, const ArgumentMap& request);

}  // namespace tool_binding::fuzz
