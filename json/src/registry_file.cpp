// SPDX-License-Identifier: MIT
#include "tool_binding/json/registry_file.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "node.hpp"
#include "place.hpp"
#include "registry_shape.hpp"

namespace tool_binding::json {

namespace {

std::string line_for(const Fault& fault) {
  std::string line = fault.line == 0 ? "" : "line " + std::to_string(fault.line) + ": ";
  return line.append(fault.place.empty() ? "the file" : fault.place).append(": ").append(fault.words);
}

std::string lines_for(std::span<const Fault> faults) {
  std::string lines;
  for (const Fault& fault : faults) {
    lines.append(lines.empty() ? "" : "\n").append(line_for(fault));
  }
  return lines;
}

/// The faults of shape, then those of what could be read in spite of them, by line. A thing that has the wrong shape is
/// not judged as well: what stands in its stead is not from the file.
std::vector<Fault> all_faults(const Node& root, RegistryShape& shape) {
  std::vector<Fault> faults = std::move(shape.faults);
  const std::size_t shape_faults = faults.size();
  for (Fault& judged : registry_faults(shape.entries)) {
    const auto end = faults.begin() + static_cast<std::ptrdiff_t>(shape_faults);
    if (std::none_of(faults.begin(), end, [&](const Fault& f) { return stands_within(judged.place, f.place); })) {
      judged.line = line_of(root, judged.place);
      faults.push_back(std::move(judged));
    }
  }
  std::stable_sort(faults.begin(), faults.end(), [](const Fault& a, const Fault& b) { return a.line < b.line; });
  return faults;
}

}  // namespace

RegistryError::RegistryError(std::vector<Fault> faults)
    : ValueError(lines_for(faults)), faults_(std::make_shared<const std::vector<Fault>>(std::move(faults))) {}

struct RegistryFile::Content {
  Node root;
  std::vector<RegistryEntry> entries;
  std::vector<Fault> faults;
};

RegistryFile::RegistryFile(std::string_view text) {
  Node root = read_node(text);
  RegistryShape shape = read_shape(root);
  std::vector<Fault> faults = all_faults(root, shape);
  content_ = std::make_shared<const Content>(Content{std::move(root), std::move(shape.entries), std::move(faults)});
}

std::span<const RegistryEntry> RegistryFile::entries() const noexcept { return content_->entries; }

std::span<const Fault> RegistryFile::faults() const noexcept { return content_->faults; }

std::size_t RegistryFile::line_of(std::string_view place) const { return json::line_of(content_->root, place); }

std::vector<DeclaredTool> read_registry(std::string_view text) {
  const RegistryFile file(text);
  if (!file.faults().empty()) {
    throw RegistryError({file.faults().begin(), file.faults().end()});
  }
  std::vector<DeclaredTool> tools;
  tools.reserve(file.entries().size());
  for (const RegistryEntry& entry : file.entries()) {
    tools.push_back({ToolSpec(entry.tool), Handler{entry.signature, {}}});
  }
  return tools;
}

}  // namespace tool_binding::json
