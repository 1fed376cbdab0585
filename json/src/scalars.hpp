// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tokens.hpp"
#include "tool_binding/detail/assert.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::json {

/// `content` with its escapes replaced: a view of itself where it has none, else into `unescaped`. `begin` is its
/// offset in the text. Throws ParseError for an escape that JSON does not know.
[[nodiscard]] std::string_view replace_escapes(const Tokens& tokens, std::size_t begin, std::string_view content,
                                               std::string& unescaped);

/// The content of a token that begins with a double quote, which lives as long as the tokens and `unescaped` are left
/// alone. Throws ParseError.
[[nodiscard]] inline std::string_view read_text(const Tokens& tokens, std::size_t token, std::string& unescaped) {
  std::string_view content = tokens.whole(token);
  TOOL_BINDING_ASSERT(content.size() >= 2);
  content.remove_prefix(1);
  content.remove_suffix(1);
  return tokens.hold_backslash() ? replace_escapes(tokens, tokens.begin_of(token) + 1, content, unescaped) : content;
}

/// What a token that begins with a digit or a minus sign spells. Throws ParseError.
[[nodiscard]] Value read_number(const Tokens& tokens, std::size_t token);

/// What a token that begins with neither a quote nor a digit spells: one of the bare words, or a negative number.
/// Throws ParseError.
[[nodiscard]] Value read_word_or_negative(const Tokens& tokens, std::size_t token);

}  // namespace tool_binding::json
