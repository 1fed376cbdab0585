// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

/// Arguments that say where a request goes. They are never the tool's own.
inline constexpr std::array<std::string_view, 2> ROUTING_PARAMS = {REPO_ROOT_ARGUMENT, "repo"};

[[nodiscard]] inline bool is_routing_param(std::string_view name) noexcept {
  return name == ROUTING_PARAMS[0] || name == ROUTING_PARAMS[1];
}

}  // namespace tool_binding
