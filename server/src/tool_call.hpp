// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "core.hpp"

namespace tool_binding::server::detail {

/// The result of a call, in the words of that version, as text that is fit to be sent. Whatever is refused or fails on
/// the way to the handler and in it is such a result, too.
[[nodiscard]] std::string call_result(const Core& core, const Tool& tool, const ArgumentMap& arguments,
                                      const Version& version, Call& call);

/// The result of a call that was not made.
[[nodiscard]] std::string refused_call(const Core& core, const Text& words, const Version& version);

}  // namespace tool_binding::server::detail
