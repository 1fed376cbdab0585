// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tokens.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::json {

/// What the token spells: a text, a number, or one of the bare words. Throws ParseError for any other token.
[[nodiscard]] Value read_scalar(const Tokens& tokens, std::size_t token, std::string& unescaped);

/// The content of a token that begins with a double quote: a view into the tokens, or into `unescaped` where the text
/// holds an escape. Throws ParseError for an escape that JSON does not know.
[[nodiscard]] std::string_view read_text(const Tokens& tokens, std::size_t token, std::string& unescaped);

/// What a token that begins with a digit or "-" spells. Throws ParseError.
[[nodiscard]] Value read_number(const Tokens& tokens, std::size_t token);

}  // namespace tool_binding::json
