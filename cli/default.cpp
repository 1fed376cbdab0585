// SPDX-License-Identifier: MIT
#include <memory>

#include "answer_questions.hpp"
#include "command.hpp"
#include "members.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::cli {

namespace {

/// What a call gets for a parameter that it leaves out. No action has an empty name, so that the empty one stands for
/// a call that runs none.
Value default_of(const Text& tool, const ArgumentMap& line) {
  const Text name = required_text(line, "name");
  return action_default(tool, name, optional_text(line, "action").value_or(Text()));
}

}  // namespace

Run declare_default(CLI::App& command) {
  const auto files = std::make_shared<Files>();
  add_registry_option(command, *files);
  add_lines_argument(command, *files, "REQUESTS");
  add_words(command, R"(A line: {"tool": "search", "name": "limit", "action": "list"}
Its answer: {"tool": "search", "default": 50}
An action that is left out or null stands for a call that runs none.)");
  return [files] { return answer_questions(*files, "default", default_of); };
}

}  // namespace tool_binding::cli
