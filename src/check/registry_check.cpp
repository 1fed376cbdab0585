// SPDX-License-Identifier: MIT
#include "tool_binding/registry_check.hpp"

#include <utility>

#include "check/findings.hpp"
#include "tool_binding/detail/assert.hpp"

namespace tool_binding {

namespace {

std::string lines_for(std::span<const RegistryFinding> faults) {
  std::string lines;
  for (const RegistryFinding& fault : faults) {
    lines.append(lines.empty() ? "" : "\n");
    lines.append(fault.line == 0 ? "" : "line " + std::to_string(fault.line) + ": ");
    lines.append(fault.place.empty() ? "the file" : fault.place).append(": ").append(fault.words);
  }
  return lines;
}

/// The faults of the entries, and of those whose tools the table holds already.
std::vector<RegistryFinding> errors_beside(const ToolTable& table, std::span<const RegistryEntry> entries,
                                           const KeywordArguments* offered) {
  std::vector<RegistryFinding> errors = registry_errors(entries, offered);
  RegistryFindings repeated;
  for (std::size_t index = 0; index < entries.size(); ++index) {
    if (table.find(entries[index].tool.name) != nullptr) {
      repeated.add(RegistryFinding::Kind::repeated_name, member_place(item_place("tools", index), "name"),
                   {quoted(entries[index].tool.name), "an earlier call"});
    }
  }
  for (RegistryFinding& fault : repeated.take()) {
    errors.push_back(std::move(fault));
  }
  return errors;
}

Handlers declare(ToolTable& table, std::vector<RegistryEntry> entries, const KeywordArguments* offered) {
  if (std::vector<RegistryFinding> errors = errors_beside(table, entries, offered); !errors.empty()) {
    throw RegistryError(std::move(errors));
  }
  Handlers handlers;
  handlers.reserve(entries.size());
  std::vector<ToolSpec> tools;
  tools.reserve(entries.size());
  for (RegistryEntry& entry : entries) {
    const ToolSpec& tool = tools.emplace_back(std::move(entry.tool));
    if (entry.handler.for_tool) {
      entry.handler.function = entry.handler.for_tool(tool);
    }
    handlers.append(tool.name(), std::move(entry.handler));
  }
  table.add(tools);
  return handlers;
}

}  // namespace

std::vector<RegistryFinding> check_registry(std::span<const RegistryEntry> entries, const KeywordArguments* offered) {
  std::vector<RegistryFinding> findings = registry_errors(entries, offered);
  for (RegistryFinding& warning : registry_warnings(entries)) {
    findings.push_back(std::move(warning));
  }
  return findings;
}

RegistryError::RegistryError(std::vector<RegistryFinding> faults)
    : ValueError(lines_for(faults)), faults_(std::make_shared<const std::vector<RegistryFinding>>(std::move(faults))) {
  TOOL_BINDING_ASSERT(!faults_->empty());
}

Handlers declare_tools(ToolTable& table, std::vector<RegistryEntry> entries, const KeywordArguments& offered) {
  return declare(table, std::move(entries), &offered);
}

Handlers declare_tools(ToolTable& table, std::vector<RegistryEntry> entries) {
  return declare(table, std::move(entries), nullptr);
}

Handlers declare_tools(std::vector<RegistryEntry> entries, const KeywordArguments& offered) {
  return declare(TOOLS, std::move(entries), &offered);
}

Handlers declare_tools(std::vector<RegistryEntry> entries) { return declare(TOOLS, std::move(entries), nullptr); }

}  // namespace tool_binding
