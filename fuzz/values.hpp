// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "choices.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::fuzz {

/// A text that some reader of the layer looks at twice, or any bytes.
[[nodiscard]] std::string make_text(Choices& choices);

/// A value of any kind, nested at most `depth` levels. Names in mappings are ASCII.
[[nodiscard]] Value make_value(Choices& choices, unsigned depth);

}  // namespace tool_binding::fuzz
