// SPDX-License-Identifier: MIT
#include "answer_lines.hpp"

#include <optional>

#include "output.hpp"

namespace tool_binding::cli {

namespace {

/// As much as is written at once while there is more input.
constexpr std::size_t large_output = std::size_t{64} * 1024;

}  // namespace

ExitStatus answer_lines(const std::string& path, const Answerer& answer) {
  InputLines lines{Input(path)};
  json::Writer output;
  ExitStatus status = ExitStatus::answered;
  while (true) {
    if (output.text().size() >= large_output || !lines.has_whole_line()) {
      if (!print(output.text())) {
        return status;
      }
      output.clear();
    }
    const std::optional<Line> line = lines.next();
    if (!line) {
      break;
    }
    if (answer(*line, output) == Outcome::refused) {
      status = ExitStatus::refused;
    }
    output.end_line();
  }
  return status;
}

}  // namespace tool_binding::cli
