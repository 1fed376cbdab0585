// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "tool_binding/integer.hpp"

/// Readers of numbers that were sent as text. White space at both ends is ignored, a digit may be of any script, and a
/// single "_" is allowed between two digits. Both are linear in the size of the text, and none depends on a locale.
namespace tool_binding::types {

/// The integer that `text` writes, of any width: an optional sign and decimal digits. Nothing for any other text.
[[nodiscard]] std::optional<Integer> read_integer(std::string_view text);

/// The double nearest to the decimal numeral that `text` writes, ties to even (IEEE 754): beyond the largest double an
/// infinity, below the smallest a zero, each with the sign written. Also "inf", "infinity" and "nan" in any case, with
/// an optional sign. Nothing for any other text.
[[nodiscard]] std::optional<double> read_floating(std::string_view text);

}  // namespace tool_binding::types
