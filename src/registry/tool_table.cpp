// SPDX-License-Identifier: MIT
#include <deque>
#include <string>
#include <utility>

#include "registry/name_index.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

struct ToolTable::Content {
  std::deque<ToolSpec> tools;
  detail::NameIndex indexes;
};

ToolTable::~ToolTable() { delete content_; }

void ToolTable::add(const ToolSpec& tool) { add(std::span(&tool, 1)); }

void ToolTable::add(ToolDeclaration tool) { add(ToolSpec(std::move(tool))); }

void ToolTable::add(std::span<const ToolSpec> tools) {
  detail::NameIndex names;
  for (const ToolSpec& tool : tools) {
    if (find(tool.name()) != nullptr || !names.add(tool.name(), 0)) {
      throw ValueError("a tool named '" + std::string(tool.name()) + "' is already declared");
    }
  }
  if (content_ == nullptr) {
    content_ = new Content;
  }
  auto index = static_cast<std::uint32_t>(content_->tools.size());
  content_->indexes.reserve(tools.size());
  content_->tools.insert(content_->tools.end(), tools.begin(), tools.end());
  for (const ToolSpec& tool : tools) {  // fails no more: there is room
    content_->indexes.add(tool.name(), index++);
  }
}

const ToolSpec& ToolTable::operator[](std::string_view name) const {
  if (const ToolSpec* const found = find(name); found != nullptr) {
    return *found;
  }
  throw UnknownToolError("no tool is named '" + std::string(name) + "'");
}

const ToolSpec* ToolTable::find(std::string_view name) const noexcept {
  if (content_ == nullptr) {
    return nullptr;
  }
  const std::uint32_t index = content_->indexes.find(name);
  return index == detail::NameIndex::absent ? nullptr : &content_->tools[index];
}

const std::deque<ToolSpec>& ToolTable::all() const {
  static const auto& none = *new std::deque<ToolSpec>;  // lives as long as the process, as what refers to it may
  return content_ == nullptr ? none : content_->tools;
}

#if __has_cpp_attribute(clang::no_destroy)
[[clang::no_destroy]]
#endif
constinit detail::LastingTable detail::tools_of_process;

}  // namespace tool_binding
