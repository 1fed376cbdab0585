// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "tool_binding/admission.hpp"
#include "values/text_builder.hpp"

namespace tool_binding {

/// Appends the words of a finding.
void append_message(TextBuilder& out, const Finding& finding);

/// The messages of the problems among `findings`, joined as a refusal shows them.
[[nodiscard]] Text joined_problems(std::span<const Finding> findings);

}  // namespace tool_binding
