// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "tool_binding/admission.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::json {

/// A finding as programs read it: {"kind": "unknown_parameter", "argument": "limt", "sent": 5, "proposal": "limit",
/// "message": "…"}. "kind" and "message" are always there; "argument", "parameter", "sent", "used" and "proposal" where
/// they apply.
[[nodiscard]] TOOL_BINDING_API Value finding_value(const Finding& finding);

/// A list of them, in their order.
[[nodiscard]] TOOL_BINDING_API Value findings_value(std::span<const Finding> findings);

}  // namespace tool_binding::json
