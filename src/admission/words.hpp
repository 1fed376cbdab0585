// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "tool_binding/admission.hpp"

namespace tool_binding {

/// Appends the words of a finding.
void append_message(std::string& out, const Finding& finding);

/// The messages of the problems among `findings`, joined as a refusal shows them.
[[nodiscard]] Text joined_problems(std::span<const Finding> findings);

}  // namespace tool_binding
