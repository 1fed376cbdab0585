// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::json {

/// The indexes of the names that occur earlier in `names` too, in ascending order. The cost is n log n, whoever
/// chose the names.
[[nodiscard]] std::vector<std::size_t> repeated_names(std::span<const Text> names);

}  // namespace tool_binding::json
