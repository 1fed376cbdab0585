// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::json {

/// The places of the names that stand earlier in `names` already, in ascending order. The cost is n log n, whoever
/// chose the names.
[[nodiscard]] std::vector<std::size_t> repeated_names(std::span<const Text> names);

}  // namespace tool_binding::json
