// SPDX-License-Identifier: MIT
#include "tool_binding/registry_check.hpp"

#include <utility>

#include "check/findings.hpp"

namespace tool_binding {

namespace {

std::string lines_for(std::span<const Finding> faults) {
  std::string lines;
  for (const Finding& fault : faults) {
    lines.append(lines.empty() ? "" : "\n");
    lines.append(fault.line == 0 ? "" : "line " + std::to_string(fault.line) + ": ");
    lines.append(fault.place.empty() ? "the file" : fault.place).append(": ").append(fault.words);
  }
  return lines;
}

/// The faults of the entries, and of those whose tools the table holds already.
std::vector<Finding> errors_beside(const ToolTable& table, std::span<const RegistryEntry> entries) {
  std::vector<Finding> errors = registry_errors(entries);
  Findings repeated;
  for (std::size_t index = 0; index < entries.size(); ++index) {
    if (table.find(entries[index].tool.name) != nullptr) {
      repeated.add(Finding::Kind::repeated_name, member_place(item_place("tools", index), "name"),
                   {quoted(entries[index].tool.name), "an earlier call"});
    }
  }
  for (Finding& fault : repeated.take()) {
    errors.push_back(std::move(fault));
  }
  return errors;
}

}  // namespace

std::vector<Finding> check_registry(std::span<const RegistryEntry> entries) {
  std::vector<Finding> findings = registry_errors(entries);
  for (Finding& warning : registry_warnings(entries)) {
    findings.push_back(std::move(warning));
  }
  return findings;
}

RegistryError::RegistryError(std::vector<Finding> faults)
    : ValueError(lines_for(faults)), faults_(std::make_shared<const std::vector<Finding>>(std::move(faults))) {}

Handlers declare_tools(std::vector<RegistryEntry> entries) { return declare_tools(TOOLS, std::move(entries)); }

Handlers declare_tools(ToolTable& table, std::vector<RegistryEntry> entries) {
  if (std::vector<Finding> errors = errors_beside(table, entries); !errors.empty()) {
    throw RegistryError(std::move(errors));
  }
  Handlers handlers;
  handlers.reserve(entries.size());
  std::vector<ToolSpec> tools;
  tools.reserve(entries.size());
  for (RegistryEntry& entry : entries) {
    handlers.append(entry.tool.name, std::move(entry.handler));
    tools.emplace_back(std::move(entry.tool));
  }
  table.add(tools);
  return handlers;
}

}  // namespace tool_binding
