// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "tool_binding/text.hpp"

namespace tool_binding::text {

/// `text` in lower case: the default full mapping of the Unicode Standard, so that U+0130 becomes two code points and a
/// capital sigma at the end of a word the final small sigma. This is not case folding: a sharp s stays one. Bytes that
/// are not part of well-formed text, and lone surrogates, stay as they are. Linear in the size of `text`.
[[nodiscard]] Text lower_case(std::string_view text);

}  // namespace tool_binding::text
