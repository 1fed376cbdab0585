// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/report/report.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::report {

/// A tool as a registry file declares it, without its descriptions: what a report is read by.
[[nodiscard]] Value declared_value(const ToolSpec& tool);

/// Adds what is counted without regard to order: all but the rows. Precondition: both are of one tool.
void add_counts(ToolUse& use, const ToolUse& more);

}  // namespace tool_binding::report
