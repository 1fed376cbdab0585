// SPDX-License-Identifier: MIT
#include <string>
#include <utility>
#include <vector>

#include "registry/name_index.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

struct ToolTable::Content {
  std::vector<ToolSpec> tools;
  detail::NameIndex places;
};

ToolTable::~ToolTable() { delete content_; }

void ToolTable::add(ToolSpec tool) {
  if (find(tool.name()) != nullptr) {
    throw ValueError("a tool named '" + std::string(tool.name()) + "' is declared already");
  }
  if (content_ == nullptr) {
    content_ = new Content;
  }
  content_->places.add(tool.name(), static_cast<std::uint32_t>(content_->tools.size()));
  content_->tools.push_back(std::move(tool));
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
  const std::uint32_t place = content_->places.find(name);
  return place == detail::NameIndex::absent ? nullptr : &content_->tools[place];
}

std::span<const ToolSpec> ToolTable::all() const noexcept {
  return content_ == nullptr ? std::span<const ToolSpec>() : content_->tools;
}

constinit ToolTable TOOLS;

}  // namespace tool_binding
