// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What of a message only its text shows, and what text is fit to be sent.
namespace tool_binding::server::detail {

/// Whether a line holds nothing but white space of JSON (RFC 8259).
[[nodiscard]] bool is_blank_line(std::string_view line) noexcept;

/// The place of the first bare word NaN or Infinity, which the reader takes and JSON does not have; npos for none.
/// Precondition: the reader takes `text`.
[[nodiscard]] std::size_t place_of_bare_word(std::string_view text) noexcept;

/// The id of a message as its text spells it: that of the message at `place` of a batch, or of the message itself where
/// `text` is an object. Empty where its key is spelled with escapes. Precondition: the reader takes `text`.
[[nodiscard]] std::string_view spelled_id(std::string_view text, std::size_t place = 0) noexcept;

/// Makes a JSON text that any reader takes of one that was written: what no UTF-8 can spell becomes U+FFFD, a number
/// that is not finite null.
void make_sendable(std::string& text);

/// At most that many bytes of a text, cut between characters, with "…" where it goes on.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t most_bytes);

}  // namespace tool_binding::server::detail
