// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tokens.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::json {

/// What the token spells, a number or one of the bare words. Throws ParseError for any other token.
[[nodiscard]] Value read_number_or_word(const Tokens& tokens, std::size_t token);

/// `content` with its escapes replaced: a view of itself where it has none, else into `unescaped`. `begin` is its
/// offset in the text. Throws ParseError for an escape that JSON does not know.
[[nodiscard]] std::string_view replace_escapes(const Tokens& tokens, std::size_t begin, std::string_view content,
                                               std::string& unescaped);

/// The content of a token that begins with a double quote, which lives as long as the tokens and `unescaped` are left
/// alone. Throws ParseError.
[[nodiscard]] inline std::string_view read_text(const Tokens& tokens, std::size_t token, std::string& unescaped) {
  const std::string_view quoted = tokens.whole(token);
  const std::string_view content = quoted.substr(1, quoted.size() - 2);
  return tokens.hold_backslash() ? replace_escapes(tokens, tokens.begin_of(token) + 1, content, unescaped) : content;
}

/// What a token that begins with a digit or "-" spells. Throws ParseError.
[[nodiscard]] Value read_number(const Tokens& tokens, std::size_t token);

}  // namespace tool_binding::json
