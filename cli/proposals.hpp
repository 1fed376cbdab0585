// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/tool_registry.hpp"

/// What was probably meant by a name that is not there.
namespace tool_binding::cli {

/// "; did you mean 'search'?" for the name nearest to `given`, as admission finds near names; empty where none is near.
[[nodiscard]] std::string did_you_mean(std::string_view given, const std::vector<Text>& names);

/// The tool of that name in `TOOLS`, which the registry at `path` filled. Throws UnusableFile, with a proposal, where
/// there is none.
[[nodiscard]] const ToolSpec& declared_tool(const std::string& name, const std::string& path);

}  // namespace tool_binding::cli
