// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "command.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "output.hpp"
#include "page.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::cli {

namespace {

struct Question {
  Files files;
  std::vector<std::string> tools;  ///< empty for all
};

std::vector<Value> advertised(const Question& question) {
  std::vector<Value> tools;
  for (const std::string& name : question.tools) {
    tools.push_back(json::advertised_tool(TOOLS[name]));
  }
  if (question.tools.empty()) {
    for (const ToolSpec& tool : TOOLS.all()) {
      tools.push_back(json::advertised_tool(tool));
    }
  }
  return tools;
}

ExitStatus schema(const Question& question) {
  static_cast<void>(load_registry(question.files.registry));
  try {
    print(page_of(ArgumentMap{{"tools", advertised(question)}}));
  } catch (const KeyError& unknown) {
    throw UnusableFile(question.files.registry, unknown.message());
  }
  return ExitStatus::answered;
}

}  // namespace

Run declare_schema(CLI::App& command) {
  const auto question = std::make_shared<Question>();
  add_registry_option(command, question->files);
  command.add_option("TOOL", question->tools, "The tools to show; none: all of them");
  return [question] { return schema(*question); };
}

}  // namespace tool_binding::cli
