// SPDX-License-Identifier: MIT
#include "tools.hpp"

#include <algorithm>
#include <utility>

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

bool is_bound(const tb::ToolDeclaration& tool, const tb::Text& name) {
  return name == tb::ACTION_PARAM || std::any_of(tool.params.begin(), tool.params.end(),
                                                 [&](const tb::ParamSpec& param) { return param.name == name; });
}

/// The registry knows what is bound for a handler; what the daemon supplies beside it is known here alone.
void find_missing_context(const tb::RegistryEntry& entry, const tb::KeywordArguments& context,
                          std::vector<tb::RegistryFinding>& findings) {
  for (const tb::Parameter& parameter : entry.handler.signature.parameters) {
    if (parameter.kind == tb::Parameter::Kind::NAMED && !is_bound(entry.tool, parameter.name) &&
        parameter.name != "call" && !context.contains(parameter.name)) {
      findings.push_back({.kind = tb::RegistryFinding::Kind::keyword_without_taker,
                          .place = std::string(entry.tool.name),
                          .words = "the handler takes '" + std::string(parameter.name) + "', which nobody gives"});
    }
  }
}

}  // namespace

tb::server::Server served_tools(const tb::KeywordArguments& context) {
  const std::vector<tb::RegistryEntry> entries = {search_tool(), read_tool(), files_tool(), status_tool()};
  std::vector<tb::RegistryFinding> findings = tb::check_registry(entries);
  std::vector<tb::server::ServedTool> tools;
  for (const tb::RegistryEntry& entry : entries) {
    find_missing_context(entry, context, findings);
    tools.push_back({.tool = entry.tool, .handler = entry.handler, .annotations = {.read_only = true}});
  }
  if (!findings.empty()) {
    throw tb::RegistryError(std::move(findings));
  }
  return {{.name = "repo_daemon",
           .version = "1.0",
           .instructions = "Tools over the files of one directory. Paths are given from that directory on."},
          tools,
          {.workers = 2, .context = context, .table = &tb::TOOLS}};
}

}  // namespace repo_daemon
