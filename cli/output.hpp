// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tool_binding::cli {

/// Writes all of `text` to standard output. False when nobody reads any more: a closed pipe is the reader's right, no
/// failure. Throws std::system_error for a failure.
bool print(std::string_view text);

/// Writes a file with that content, in place of one that is there; - stands for standard output. Throws
/// std::system_error.
void write_file(const std::string& path, std::string_view content);

}  // namespace tool_binding::cli
