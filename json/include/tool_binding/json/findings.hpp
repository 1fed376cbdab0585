// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "tool_binding/admission.hpp"
#include "tool_binding/value.hpp"

#pragma GCC visibility push(default)

namespace tool_binding::json {

/// A finding as programs read it: {"kind": "unknown_parameter", "argument": "limt", "sent": 5, "proposal": "limit",
/// "message": "…"}. "kind" and "message" are always there; "argument", "parameter", "sent", "used" and "proposal" where
/// they apply.
[[nodiscard]] Value finding_value(const Finding& finding);

/// A list of them, in their order.
[[nodiscard]] Value findings_value(std::span<const Finding> findings);

}  // namespace tool_binding::json

#pragma GCC visibility pop
