// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

/// What a schema says of one parameter of the tool.
[[nodiscard]] Value property_schema(const ToolSpec& tool, const ParamSpec& param, SchemaForm form);

/// What it says of the action: the names, and a line for each that is described.
[[nodiscard]] Value action_schema(const ToolSpec& tool, SchemaForm form);

/// Whether the schema requires the parameter of every call. The open form does not where the parameter has other names,
/// under any of which it may be sent.
[[nodiscard]] bool is_required_in(SchemaForm form, const ParamSpec& param);

/// The texts, each once.
[[nodiscard]] Value list_of(const std::vector<Text>& texts);

}  // namespace tool_binding::json
