// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tool_binding/tool_registry.hpp"

/// Rules of a parameter in words, for the description that a schema has of it. Each is empty where there is no such
/// rule. Values are written as in JSON.
namespace tool_binding::json {

/// "Needed by find and stats."
[[nodiscard]] std::string needed_by_sentence(const ToolSpec& tool, const ParamSpec& param);

/// "Default: 50 for list, 20 otherwise."
[[nodiscard]] std::string action_defaults_sentence(const ParamSpec& param);

/// "Default: 20.", for a default that does not differ by action.
[[nodiscard]] std::string default_sentence(const ParamSpec& param);

/// "From 1 to 100.", "At least 1." or "At most 100."
[[nodiscard]] std::string bounds_sentence(const ParamSpec& param);

/// "One of: "a", "b"." or, for a list, "Each one of: "a", "b"."
[[nodiscard]] std::string enumeration_sentence(const ParamSpec& param);

}  // namespace tool_binding::json
