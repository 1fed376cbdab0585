// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "tool_binding/value.hpp"

/// The readers under `parse_bool` and `split_csv`. They answer with nothing where those throw, since a refused argument
/// is an everyday case in admission and must not cost an exception there.
namespace tool_binding::types {

/// What `parse_bool` returns, nothing for a text that is not a truth word.
[[nodiscard]] std::optional<bool> read_bool(std::string_view text);

/// What `split_csv` returns as a list, null for a text that it refuses.
[[nodiscard]] Value read_csv(std::string_view text);

}  // namespace tool_binding::types
