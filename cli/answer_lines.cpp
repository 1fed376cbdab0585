// SPDX-License-Identifier: MIT
#include "answer_lines.hpp"

#include <optional>

#include "output.hpp"

namespace tool_binding::cli {

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
    if (answer(*line, output.text()) == Outcome::refused) {
      status = ExitStatus::refused;
    }
    output.text() += '\n';
  }
  return status;
}

}  // namespace tool_binding::cli
