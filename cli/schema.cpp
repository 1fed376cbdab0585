// SPDX-License-Identifier: MIT
#include <memory>
#include <string>
#include <vector>

#include "command.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "output.hpp"
#include "page.hpp"
#include "proposals.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::cli {

namespace {

struct SchemaQuestion {
  Files files;
  std::vector<std::string> tools;  ///< empty for all
  json::SchemaForm form = json::SchemaForm::common;
  bool names_alone = false;
};

std::vector<const ToolSpec*> tools_of(const SchemaQuestion& question) {
  std::vector<const ToolSpec*> tools;
  for (const std::string& name : question.tools) {
    tools.push_back(&declared_tool(name, question.files.registry));
  }
  if (question.tools.empty()) {
    for (const ToolSpec& tool : TOOLS.all()) {
      tools.push_back(&tool);
    }
  }
  return tools;
}

/// The names that an argument of the tool may have, a line each.
std::string argument_names(const ToolSpec& tool) {
  std::string lines = tool.actions().empty() ? "" : std::string(ACTION_PARAM) + "\n";
  for (const ParamSpec& param : tool.params()) {
    if (!is_reserved_name(param.name)) {
      lines.append(param.name).append("\n");
    }
  }
  return lines;
}

/// The names of the tools or, where tools are named, of their arguments.
std::string names(const SchemaQuestion& question) {
  std::string lines;
  for (const ToolSpec* const tool : tools_of(question)) {
    lines += question.tools.empty() ? std::string(tool->name()) + "\n" : argument_names(*tool);
  }
  return lines;
}

std::string schemas(const SchemaQuestion& question) {
  std::vector<Value> advertised;
  for (const ToolSpec* const tool : tools_of(question)) {
    advertised.push_back(json::advertised_tool(*tool, question.form));
  }
  return page_of(ArgumentMap{{"tools", std::move(advertised)}});
}

ExitStatus schema(const SchemaQuestion& question) {
  static_cast<void>(load_registry(question.files.registry));
  print(question.names_alone ? names(question) : schemas(question));
  return ExitStatus::answered;
}

}  // namespace

Run declare_schema(CLI::App& command) {
  const auto question = std::make_shared<SchemaQuestion>();
  add_registry_option(command, question->files);
  const auto add_form = [&](const char* name, json::SchemaForm form, const char* purpose) {
    add_flag(
        command, name, [question, form] { question->form = form; }, purpose);
  };
  add_form("--conditions", json::SchemaForm::conditions, "Add what each action needs as an allOf");
  add_form("--strict", json::SchemaForm::strict,
           "For strict function calling: all required, null where one may be left out");
  add_form("--open", json::SchemaForm::open, "For clients that validate before they send: rules in descriptions");
  let_exclude_each_other(command, {"--conditions", "--strict", "--open"});
  add_flag(command, "--names", question->names_alone,
           "Show names alone: of the tools, or of the arguments of each TOOL");
  add_values(command, "TOOL", question->tools, "The tools to show; none: all of them");
  return [question] { return schema(*question); };
}

}  // namespace tool_binding::cli
