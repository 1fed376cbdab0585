// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tool_binding/value.hpp"

#pragma GCC visibility push(default)

/// Values to JSON text (RFC 8259) on one line, as in {"tool": "search", "arguments": {"limit": 5}}.
///
/// Text stands as UTF-8, escaped only where JSON requires it. What no UTF-8 can spell, a lone surrogate or a byte that
/// is no part of well-formed text, stands as the `\u` escape of its code point: the output is always well-formed. Two
/// such halves of a pair next to each other are read as the code point that they make: JSON spells both alike. An
/// integer has all its digits. A floating number has a fraction or an exponent (5.0, 1e+16), or is one of the bare
/// words NaN, Infinity and -Infinity, so that it is read as a floating number again.
namespace tool_binding::json {

[[nodiscard]] std::string write(const Value& value);

/// Appends what `write` returns to `out`.
void write_to(std::string& out, const Value& value);

}  // namespace tool_binding::json

#pragma GCC visibility pop
