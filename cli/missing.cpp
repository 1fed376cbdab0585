// SPDX-License-Identifier: MIT
#include <memory>
#include <optional>
#include <string>

#include "answer_questions.hpp"
#include "command.hpp"
#include "members.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::cli {

namespace {

/// The words for what a call lacks, null when it lacks nothing.
Value missing(const Text& tool, const ArgumentMap& line) {
  const std::optional<Text> action = optional_text(line, "action");
  const Value arguments = optional_object(line, "arguments");
  const std::optional<std::string> words = missing_arguments(tool, action, arguments.mapping());
  return words ? Value(*words) : Value();
}

}  // namespace

Run declare_missing(CLI::App& command) {
  const auto files = std::make_shared<Files>();
  add_registry_option(command, *files);
  add_lines_argument(command, *files, "REQUESTS");
  add_words(command, R"(A line: {"tool": "search", "action": "find", "arguments": {}}
Its answer: {"tool": "search", "missing": "search 'find' needs 'query'"}, or null there.
An action that is left out or null stands for a call that runs none.)");
  return [files] { return answer_questions(*files, "missing", missing); };
}

}  // namespace tool_binding::cli
