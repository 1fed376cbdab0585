// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/json/tool_list.hpp"
#include "tool_binding/server/served_tool.hpp"
#include "tool_binding/tool_registry.hpp"
#include "versions.hpp"

namespace tool_binding::server::detail {

/// What a client of that version is told of a tool.
[[nodiscard]] Value listed_tool(const ToolSpec& spec, const ServedTool& tool, const Version& version,
                                json::SchemaForm form);

/// Whether such a client is told of the schema: before structured values could be of any kind, it was an object's.
[[nodiscard]] bool has_output_schema(const ServedTool& tool, const Version& version);

}  // namespace tool_binding::server::detail
