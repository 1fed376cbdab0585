// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace tool_binding::bench {

/// How often this program has taken memory from the heap: whoever links this file replaces operator new.
[[nodiscard]] std::size_t allocations() noexcept;

}  // namespace tool_binding::bench
