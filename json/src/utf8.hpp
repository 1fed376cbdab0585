// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tool_binding::json {

/// The size in bytes of the well-formed UTF-8 sequence that `text` begins with, 0 when it begins with none.
/// Precondition: `text` is not empty.
[[nodiscard]] std::size_t sequence_size(std::string_view text) noexcept;

/// Whether `text` begins with the three-byte form of a surrogate, which is not well-formed.
[[nodiscard]] bool begins_with_surrogate(std::string_view text) noexcept;

/// The offset of the first byte that is not valid UTF-8, npos when there is none.
[[nodiscard]] std::size_t first_ill_formed(std::string_view text) noexcept;

/// Appends the UTF-8 of a code point, the three-byte form for a surrogate.
void append_code_point(std::string& out, std::uint32_t code_point);

}  // namespace tool_binding::json
