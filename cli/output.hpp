// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tool_binding::cli {

/// Writes all of `text` to standard output. False when nobody reads any more: a closed pipe is the reader's right, no
/// failure. Throws std::system_error for a failure.
bool print(std::string_view text);

}  // namespace tool_binding::cli
