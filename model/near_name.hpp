// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::model {

/// The name nearest to `word`, by gestalt pattern matching (Ratcliff and Obershelp) as the textbook has it: the
/// greatest of those that are most similar. Nothing when none reaches a similarity of 0.6.
[[nodiscard]] std::optional<Text> nearest(std::string_view word, const std::vector<Text>& names);

}  // namespace tool_binding::model
