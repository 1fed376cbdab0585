// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "importing.hpp"
#include "node.hpp"

namespace tool_binding::json {

namespace {

struct FoundList {
  const Value* tools;
  std::string place;
};

/// The list of tools: the file itself, or its member "tools", also within an answer's "result".
FoundList list_in(const Value& file) {
  if (file.is_list()) {
    return {&file, ""};
  }
  const Value& result = member_of(file, "result");
  const Value& holder = result.is_null() ? file : result;
  const std::string place = result.is_null() ? "" : "result";
  if (holder.is_list()) {
    return {&holder, place};
  }
  const Value& tools = member_of(holder, "tools");
  if (!tools.is_list()) {
    throw ValueError(
        "the file must be a list of tools, an object with such a list under 'tools', or an answer to 'tools/list'");
  }
  return {&tools, member_place(place, "tools")};
}

/// Throws unless some tool is declared in a way that can be read: of other lists no registry can be made.
void require_some_tool(const std::vector<ListedTool>& tools) {
  if (tools.empty()) {
    throw ValueError("the list has no tools");
  }
  if (std::all_of(tools.begin(), tools.end(), [](const ListedTool& tool) { return tool.schema.is_null(); })) {
    throw ValueError(
        "no tool of the list has a 'name' and a schema under 'inputSchema', 'input_schema' or 'parameters'");
  }
}

/// The members given twice, with the place of each.
void add_repeated(std::vector<Remark>& remarks, const Node& node,
                  std::vector<std::pair<const Node*, std::size_t>>& path) {
  for (const std::size_t child : node.repeated) {
    std::string place;
    for (const auto& [parent, index] : path) {
      place = child_place(*parent, place, index);
    }
    remarks.push_back({Remark::Kind::reading, "", "", child_place(node, place, child),
                       quoted_form(Value(node.names[child])) + " is given twice: the later one is kept"});
  }
  for (std::size_t child = 0; child < node.children.size(); ++child) {
    if (!node.children[child].children.empty()) {
      path.emplace_back(&node, child);
      add_repeated(remarks, node.children[child], path);
      path.pop_back();
    }
  }
}

/// Reads the tools one after another.
class ListImport {
 public:
  explicit ListImport(Undeclarable undeclarable) : undeclarable_(undeclarable) {}

  void read(const ListedTool& listed) {
    ++imported_.listed;
    const Value& name = member_of(listed.members, "name");
    ToolRemarks remarks(name.is_text() ? std::string(name.text()) : "", listed.place);
    if (!name.is_text()) {
      remarks.leave_out("it has no name");
    } else {
      RegistryEntry entry{Importing(listed, undeclarable_, remarks).read(),
                          {.signature = {{{"keywords", Parameter::Kind::VAR_KEYWORD}}}, .function = {}}};
      if (names_.contains(entry.tool.name)) {
        remarks.leave_out("an earlier tool has this name");
      }
      for (const RegistryFinding& error : registry_errors({&entry, 1})) {
        remarks.leave_out(error.place.substr(error.place.find('.') + 1) + ": " + error.words);
      }
      if (!remarks.is_left_out()) {
        names_.insert(entry.tool.name);
        imported_.entries.push_back(std::move(entry));
      }
    }
    remarks.move_to(imported_.remarks);
  }

  ImportedTools take() { return std::move(imported_); }

 private:
  Undeclarable undeclarable_;
  std::set<Text> names_;
  ImportedTools imported_;
};

}  // namespace

ImportedTools import_tools(std::string_view text, Undeclarable undeclarable) {
  const Node root = read_node(text);
  const FoundList found = list_in(root.value);
  std::vector<ListedTool> tools;
  for (std::size_t index = 0; index < found.tools->list().size(); ++index) {
    tools.push_back(listed_tool(found.tools->list()[index], item_place(found.place, index)));
  }
  require_some_tool(tools);
  ListImport import(undeclarable);
  for (const ListedTool& tool : tools) {
    import.read(tool);
  }
  ImportedTools imported = import.take();
  std::vector<std::pair<const Node*, std::size_t>> path;
  add_repeated(imported.remarks, root, path);
  Lines lines(root);
  for (Remark& remark : imported.remarks) {
    remark.line = lines.of(remark.place);
  }
  std::stable_sort(imported.remarks.begin(), imported.remarks.end(),
                   [](const Remark& left, const Remark& right) { return left.line < right.line; });
  return imported;
}

}  // namespace tool_binding::json
