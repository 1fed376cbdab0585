// SPDX-License-Identifier: MIT
#include "tool_list.hpp"

#include <utility>

namespace tool_binding::server::detail {

namespace {

ArgumentMap annotations_of(const ServedTool& tool, const Version& version) {
  ArgumentMap hints;
  if (!version.has_titles && !tool.title.empty()) {
    hints.append("title", tool.title);
  }
  const std::pair<std::string_view, std::optional<bool>> rows[] = {{"readOnlyHint", tool.annotations.read_only},
                                                                   {"destructiveHint", tool.annotations.destructive},
                                                                   {"idempotentHint", tool.annotations.idempotent},
                                                                   {"openWorldHint", tool.annotations.open_world}};
  for (const auto& [name, hint] : rows) {
    if (hint) {
      hints.append(name, *hint);
    }
  }
  return hints;
}

}  // namespace

bool has_output_schema(const ServedTool& tool, const Version& version) {
  if (!version.has_structured || !tool.output_schema.is_mapping()) {
    return false;
  }
  const Value* const type = tool.output_schema.mapping().find("type");
  return version.has_any_structured || (type != nullptr && type->is("object"));
}

Value listed_tool(const ToolSpec& spec, const ServedTool& tool, const Version& version, json::SchemaForm form) {
  ArgumentMap listed = json::advertised_tool(spec, form).mapping();
  if (version.has_titles && !tool.title.empty()) {
    listed.append("title", tool.title);
  }
  if (has_output_schema(tool, version)) {
    listed.append("outputSchema", tool.output_schema);
  }
  if (ArgumentMap hints = annotations_of(tool, version); version.has_annotations && !hints.empty()) {
    listed.append("annotations", std::move(hints));
  }
  return listed;
}

}  // namespace tool_binding::server::detail
