// SPDX-License-Identifier: MIT
#include "proposals.hpp"

#include "loading.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::cli {

namespace {

/// The names as the actions of a tool: admission looks for the one that was meant.
ToolSpec tool_with_actions(const std::vector<Text>& names) {
  ToolDeclaration tool{.name = "command"};
  for (const Text& name : names) {
    tool.actions.push_back({.name = name});
  }
  return ToolSpec(std::move(tool));
}

}  // namespace

std::string did_you_mean(std::string_view given, const std::vector<Text>& names) {
  const ToolSpec choice = tool_with_actions(names);
  Text meant;
  if (const ActionSpec* const named = choice.action(given); named != nullptr) {  // but for its case
    meant = named->name;
  } else if (const Admission admission = admit(choice, {{ACTION_PARAM, given}}); !admission.is_admitted()) {
    meant = admission.findings().front().proposal;
  }
  return meant.empty() ? "" : "; did you mean '" + std::string(meant) + "'?";
}

const ToolSpec& declared_tool(const std::string& name, const std::string& path) {
  if (const ToolSpec* const tool = TOOLS.find(name); tool != nullptr) {
    return *tool;
  }
  std::vector<Text> names;
  for (const ToolSpec& declared : TOOLS.all()) {
    names.push_back(declared.name());
  }
  std::string words = "no tool is named '" + name + "'" + did_you_mean(name, names);
  if (!words.ends_with('?')) {
    words += ": the registry declares";
    for (const Text& declared : names) {
      words.append(words.ends_with(" declares") ? " " : ", ").append(declared);
    }
  }
  throw UnusableFile(path, words);
}

}  // namespace tool_binding::cli
