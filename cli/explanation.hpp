// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "colours.hpp"
#include "tool_binding/tool_binding.hpp"

/// An account of one request for people. It decides nothing: it compares what admission was given with what it gave.
namespace tool_binding::cli {

/// A request as it was sent, and the tool that is to take it.
struct Sent {
  const ToolSpec& tool;
  const ArgumentMap& arguments;
};

/// What was sent, what each argument became and why, the notes, and the keywords of the handler.
[[nodiscard]] std::string explain_admission(const Sent& sent, const NormalizedArguments& admitted,
                                            const Handler& handler, const Colours& colours);

/// What was sent, and each problem on a line of its own.
[[nodiscard]] std::string explain_refusal(const Sent& sent, std::string_view refusal, const Colours& colours);

}  // namespace tool_binding::cli
