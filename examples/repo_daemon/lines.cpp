// SPDX-License-Identifier: MIT
#include "lines.hpp"

#include <istream>

namespace repo_daemon {

LineKind read_line(std::istream& input, std::string& line, std::size_t most_bytes) {
  constexpr int end = std::istream::traits_type::eof();
  line.clear();
  std::streambuf& bytes = *input.rdbuf();
  bool is_too_long = false;
  int byte = bytes.sbumpc();
  if (byte == end) {
    return LineKind::none;
  }
  for (; byte != end && byte != '\n'; byte = bytes.sbumpc()) {
    is_too_long = is_too_long || line.size() == most_bytes;
    if (!is_too_long) {
      line += std::istream::traits_type::to_char_type(byte);
    }
  }
  return is_too_long ? LineKind::too_long : LineKind::whole;
}

}  // namespace repo_daemon
