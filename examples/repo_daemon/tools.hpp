// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/registry_check.hpp"
#include "tool_binding/server/server.hpp"

namespace repo_daemon {

/// The tools, each as it is declared beside the handler that answers it; a file in handlers/ for each.
[[nodiscard]] tool_binding::RegistryEntry search_tool();
[[nodiscard]] tool_binding::RegistryEntry read_tool();
[[nodiscard]] tool_binding::RegistryEntry files_tool();
[[nodiscard]] tool_binding::RegistryEntry status_tool();

/// A server of all of them, in the order in which they are listed, which declares them in `TOOLS`. Throws RegistryError
/// with whatever a request could stumble over, doubtful declarations and context items that the daemon does not have
/// included; none is declared then.
[[nodiscard]] tool_binding::server::Server served_tools(const tool_binding::KeywordArguments& context);

}  // namespace repo_daemon
