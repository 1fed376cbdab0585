// SPDX-License-Identifier: MIT
#include "answer_lines.hpp"

#include <optional>

#include "output.hpp"

namespace tool_binding::cli {

namespace {

/// Blank as JSON (RFC 8259) has white space, the carriage return of a line ending included.
bool is_blank(std::string_view text) { return text.find_first_not_of(" \t\r") == std::string_view::npos; }

}  // namespace

ExitStatus answer_lines(const std::string& path, const Answerer& answer) {
  InputLines lines{Input(path)};
  Output output;
  ExitStatus status = ExitStatus::answered;
  while (true) {
    if ((output.is_large() || !lines.has_whole_line()) && !output.flush()) {
      return status;
    }
    const std::optional<Line> line = lines.next();
    if (!line) {
      break;
    }
    if (is_blank(line->text)) {
      continue;
    }
    if (answer(*line, output.text()) == Outcome::refused) {
      status = ExitStatus::refused;
    }
    output.text() += '\n';
  }
  return status;
}

}  // namespace tool_binding::cli
