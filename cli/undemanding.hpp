// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/tool_registry.hpp"

namespace tool_binding::cli {

/// The tool as it would be if calls needed no parameter but `needed` (null: none at all) and no action, so that
/// admission can be asked about parts of a request. `needed` is one of the tool's parameters.
[[nodiscard]] ToolSpec undemanding(const ToolSpec& tool, const ParamSpec* needed = nullptr);

}  // namespace tool_binding::cli
