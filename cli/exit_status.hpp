// SPDX-License-Identifier: MIT
#pragma once

namespace tool_binding::cli {

/// What a run of the command says to the shell.
enum class ExitStatus : int {
  answered = 0,  ///< everything was answered, nothing refused
  refused = 1,   ///< some request was refused
  unusable = 2,  ///< wrong usage, or a registry or context that cannot be used
  failed = 3,    ///< input or output failed
};

}  // namespace tool_binding::cli
