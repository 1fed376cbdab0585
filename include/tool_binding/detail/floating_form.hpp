// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "tool_binding/detail/export.hpp"

namespace tool_binding::detail {

/// As many bytes as the plain form of a floating number takes at most, with room to spare.
inline constexpr std::size_t longest_floating_form = 32;

/// Writes the plain form of `number` to `out`, where there is room for the longest, and returns where it ends.
[[nodiscard]] TOOL_BINDING_API char* write_floating_form(char* out, double number) noexcept;

}  // namespace tool_binding::detail
