// SPDX-License-Identifier: MIT
#include "loading.hpp"

#include <memory>
#include <utility>

#include "input.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"

namespace tool_binding::cli {

namespace {

std::string with_path(const std::string& path, std::string_view faults) {
  const std::string prefix = (path == standard_input ? "standard input" : path) + ": ";
  std::string lines = prefix;
  for (const char byte : faults) {
    lines += byte;
    if (byte == '\n') {
      lines += prefix;
    }
  }
  return lines;
}

}  // namespace

UnusableFile::UnusableFile(const std::string& path, std::string_view faults) : Error(with_path(path, faults)) {}

Handlers load_registry(const std::string& path) { return load_registry(path, TOOLS); }

Handlers load_registry(const std::string& path, ToolTable& table) {
  const std::string text = read_file(path);
  Handlers handlers;
  try {
    for (json::DeclaredTool& declared : json::read_registry(text)) {
      handlers.append(declared.tool.name(), std::move(declared.handler));
      table.add(declared.tool);
    }
  } catch (const ValueError& error) {
    throw UnusableFile(path, error.message());
  }
  return handlers;
}

KeywordArguments load_context(const std::string& path) {
  KeywordArguments items;
  if (path.empty()) {
    return items;
  }
  const std::string text = read_file(path);
  Value context;
  try {
    context = json::read(text);
  } catch (const json::ParseError& error) {
    throw UnusableFile(path, error.message());
  }
  if (!context.is_mapping()) {
    throw UnusableFile(path, "the context must be a JSON object whose entries are the context items");
  }
  for (const auto& [name, value] : context.mapping()) {
    items.append(name, KeywordArgument::context(std::make_shared<const Value>(value)));
  }
  return items;
}

}  // namespace tool_binding::cli
