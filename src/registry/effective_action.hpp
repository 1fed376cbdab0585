// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/tool_registry.hpp"

namespace tool_binding::detail {

/// The action that a request runs which gives `named` as its action, null for none.
[[nodiscard]] Value effective_action(const ToolSpec& tool, const Value& named);

}  // namespace tool_binding::detail
