// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/tool_registry.hpp"

namespace repo_daemon {

/// What a tool takes, as a JSON Schema: the declared names with their types, bounds, allowed values and defaults. It is
/// what a caller should send; admission takes more, as synonyms and numerals, and says what it read them as.
[[nodiscard]] tool_binding::Value input_schema(const tool_binding::ToolSpec& tool);

}  // namespace repo_daemon
