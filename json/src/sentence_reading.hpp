// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/tool_registry.hpp"

namespace tool_binding::json {

/// Reads what the last lines of each parameter's description say by action, in the words in which schemas say it
/// ("Needed by find and stats."), and takes these lines away. Any other line stays.
void read_rule_sentences(ToolDeclaration& tool);

}  // namespace tool_binding::json
