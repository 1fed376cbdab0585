// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tool_binding/handler.hpp"

namespace repo_daemon {

/// What comes of one call.
struct Outcome {
  std::string text;                ///< the handler's answer, or the words of the refusal
  std::vector<std::string> notes;  ///< what was changed in the arguments, for the caller to learn from
  bool refused = false;
};

/// Takes the arguments of one call to its handler. Whatever is refused or fails on the way becomes the outcome.
/// Precondition: the registry holds a tool of that name.
[[nodiscard]] Outcome call_tool(const tool_binding::Text& name, const tool_binding::Handler& handler,
                                const tool_binding::ArgumentMap& arguments,
                                const tool_binding::KeywordArguments& context);

}  // namespace repo_daemon
