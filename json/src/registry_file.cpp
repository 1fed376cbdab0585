// SPDX-License-Identifier: MIT
#include "tool_binding/json/registry_file.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "node.hpp"
#include "registry_shape.hpp"

namespace tool_binding::json {

namespace {

bool touch(std::string_view left, std::string_view right) noexcept {
  return is_place_within(left, right) || is_place_within(right, left);
}

/// Adds what was checked of a file to the faults of its shape, each with its line, in the order of the lines. A thing
/// that has the wrong shape is not checked as well: what replaces it is not from the file.
void add_checked(std::vector<RegistryFinding>& findings, const Node& root, std::vector<RegistryFinding> checked) {
  const std::vector<RegistryFinding> shape = findings;
  Lines lines(root);
  for (RegistryFinding& finding : checked) {
    const auto is_beside = [&](const RegistryFinding& fault) {
      return is_error(finding.kind) ? !is_place_within(finding.place, fault.place) : !touch(finding.place, fault.place);
    };
    if (std::all_of(shape.begin(), shape.end(), is_beside)) {
      finding.line = lines.of(finding.place);
      findings.push_back(std::move(finding));
    }
  }
  std::stable_sort(findings.begin(), findings.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
}

}  // namespace

struct RegistryFile::Content {
  Node root;
  RegistryShape shape;
  std::vector<RegistryFinding> faults;
};

RegistryFile::RegistryFile(std::string_view text) {
  Node root = read_node(text);
  RegistryShape shape = read_shape(root);
  std::vector<RegistryFinding> faults = shape.faults;
  add_checked(faults, root, registry_errors(shape.entries));
  content_ = std::make_shared<const Content>(Content{std::move(root), std::move(shape), std::move(faults)});
}

std::span<const RegistryEntry> RegistryFile::entries() const noexcept { return content_->shape.entries; }

std::span<const RegistryFinding> RegistryFile::faults() const noexcept { return content_->faults; }

std::vector<RegistryFinding> RegistryFile::check() const {
  std::vector<RegistryFinding> findings = content_->shape.faults;
  add_checked(findings, content_->root, check_registry(content_->shape.entries));
  return findings;
}

std::size_t RegistryFile::line_of(std::string_view place) const { return Lines(content_->root).of(place); }

std::vector<DeclaredTool> read_registry(std::string_view text) {
  const RegistryFile file(text);
  if (!file.faults().empty()) {
    throw RegistryError({file.faults().begin(), file.faults().end()});
  }
  std::vector<DeclaredTool> tools;
  tools.reserve(file.entries().size());
  for (const RegistryEntry& entry : file.entries()) {
    tools.push_back({ToolSpec(entry.tool), entry.handler});
  }
  return tools;
}

}  // namespace tool_binding::json
