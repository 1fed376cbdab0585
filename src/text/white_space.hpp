// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// White space at the ends of a text, which every reader of the layer ignores in the same way.
namespace tool_binding::text {

/// `text` without the white space at its start; the view is part of `text`.
[[nodiscard]] std::string_view strip_start(std::string_view text) noexcept;

/// `text` without the white space at both ends; the view is part of `text`.
[[nodiscard]] std::string_view strip(std::string_view text) noexcept;

/// Whether nothing is left of `text` once it is stripped.
[[nodiscard]] bool is_blank(std::string_view text) noexcept;

}  // namespace tool_binding::text
