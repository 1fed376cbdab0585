// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace repo_daemon {

enum class LineKind { whole, too_long, none };

/// Reads the next line, without its line feed, as soon as it is there. Of a line with more than `most_bytes` the rest
/// is passed over, so that no client can fill the memory. What follows the last line feed is a line unless it is empty.
[[nodiscard]] LineKind read_line(std::istream& input, std::string& line, std::size_t most_bytes);

}  // namespace repo_daemon
