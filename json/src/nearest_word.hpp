// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tool_binding::json {

/// "; did you mean 'required'?" for the first of the words that are nearest to `given`, nothing when none is within a
/// third of its bytes, changed, left out or added, ASCII case apart.
[[nodiscard]] std::string did_you_mean(std::string_view given, std::span<const std::string_view> words);

}  // namespace tool_binding::json
