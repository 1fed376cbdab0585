// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "exit_status.hpp"
#include "options.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::cli {

/// The reply to what a line asks about its tool. Throws InvalidRequest and the errors of the layer.
using Reply = std::function<Value(const Text& tool, const ArgumentMap& line)>;

/// Loads the registry and answers every line {"tool": …} with {"tool": …, NAME: VALUE}, where VALUE is the
/// reply, or with a refusal. Throws UnusableFile and std::system_error.
[[nodiscard]] ExitStatus answer_questions(const Files& files, const Text& name, const Reply& reply);

}  // namespace tool_binding::cli
