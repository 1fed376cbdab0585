// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/tool_registry.hpp"

namespace tool_binding::cli {

/// The problems that the refusal of a request joins, each by itself. A value that is shown in a problem may hold what
/// problems are joined by, so that the refusal is not cut there: admission is asked about each part of the request
/// alone, and what it says of a part is found again in the refusal.
[[nodiscard]] std::vector<std::string> problems_of(const ToolSpec& tool, const ArgumentMap& arguments,
                                                   std::string_view refusal);

}  // namespace tool_binding::cli
