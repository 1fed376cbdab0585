// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>
#include <utility>

#include "importing.hpp"
#include "node.hpp"

namespace tool_binding::json {

namespace {

/// The list of tools and its place. Whatever else the file has beside it is remarked upon.
const Value& tools_of(const Value& file, Importing& importing) {
  const Value* const tools = file.is_mapping() ? file.mapping().find("tools") : &file;
  if (tools == nullptr || !tools->is_list()) {
    throw ValueError("the file must be a list of tools, or an object with such a list under 'tools'");
  }
  if (file.is_mapping()) {
    for (const auto& [key, value] : file.mapping()) {
      if (key != "tools") {
        importing.remark(member_place("", key), "is not kept");
      }
    }
  }
  return *tools;
}

void remark_on_repeated(Importing& importing, const Node& node, const std::string& place) {
  for (const std::size_t child : node.repeated) {
    importing.remark(child_place(node, place, child), "is given twice: the later one is kept");
  }
  for (std::size_t child = 0; child < node.children.size(); ++child) {
    if (!node.children[child].children.empty()) {
      remark_on_repeated(importing, node.children[child], child_place(node, place, child));
    }
  }
}

/// The tools in the list's order, none for one that is left out.
using ReadTools = std::vector<std::optional<RegistryEntry>>;

/// Leaves out the tools that a registry refuses. One that is left out already has a nameless entry in its stead, so
/// that the errors name places in the list.
void leave_out_refused(ReadTools& tools, std::string_view list_place, Importing& importing) {
  std::vector<RegistryEntry> entries;
  for (const auto& tool : tools) {
    entries.push_back(tool.value_or(RegistryEntry{}));
  }
  for (const RegistryFinding& error : registry_errors(entries)) {
    for (std::size_t index = 0; index < tools.size(); ++index) {
      const std::string place = item_place("tools", index);
      if (tools[index] && stands_within(error.place, place)) {
        importing.remark(item_place(list_place, index),
                         error.place.substr(place.size() + 1) + ": " + error.words + ": the tool is left out", true);
        tools[index].reset();
      }
    }
  }
}

}  // namespace

ImportedTools import_tools(std::string_view text, Unsayable unsayable) {
  const Node root = read_node(text);
  Importing importing(unsayable);
  const Value& tools = tools_of(root.value, importing);
  remark_on_repeated(importing, root, "");
  const std::string_view list_place = root.value.is_mapping() ? "tools" : "";
  ReadTools read;
  for (std::size_t index = 0; index < tools.list().size(); ++index) {
    read.push_back(importing.tool(tools.list()[index], item_place(list_place, index)));
  }
  leave_out_refused(read, list_place, importing);
  ImportedTools imported;
  for (auto& tool : read) {
    if (tool) {
      imported.entries.push_back(*std::move(tool));
    }
  }
  imported.remarks = importing.take_remarks();
  for (Remark& remark : imported.remarks) {
    remark.line = line_of(root, remark.place);
  }
  std::stable_sort(imported.remarks.begin(), imported.remarks.end(),
                   [](const Remark& left, const Remark& right) { return left.line < right.line; });
  return imported;
}

}  // namespace tool_binding::json
