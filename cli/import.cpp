// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "command.hpp"
#include "input.hpp"
#include "loading.hpp"
#include "output.hpp"
#include "page.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::cli {

namespace {

struct Import {
  std::string path = standard_input;
  bool is_lenient = false;
};

json::ImportedTools read_tools(const Import& import) {
  const std::string text = read_file(import.path);
  try {
    return json::import_tools(text, import.is_lenient ? json::Unsayable::takes_text : json::Unsayable::leaves_tool_out);
  } catch (const ValueError& error) {
    throw UnusableFile(import.path, error.message());
  }
}

ExitStatus import_tools(const Import& import) {
  const json::ImportedTools imported = read_tools(import);
  const std::string name = import.path == standard_input ? "standard input" : import.path;
  for (const json::Remark& remark : imported.remarks) {
    std::cerr << name << ':' << remark.line << ": " << remark.place << ": " << remark.words << '\n';
  }
  print(page_of(json::registry_value(imported.entries)));
  const bool is_whole = std::none_of(imported.remarks.begin(), imported.remarks.end(),
                                     [](const json::Remark& remark) { return remark.leaves_tool_out; });
  return is_whole ? ExitStatus::answered : ExitStatus::refused;
}

}  // namespace

Run declare_import(CLI::App& command) {
  const auto import = std::make_shared<Import>();
  command.add_option("FILE", import->path, "A list of tools with their schemas; - or nothing: standard input");
  command.add_flag("--lenient", import->is_lenient, "Let a parameter take text where no type says what it is");
  return [import] { return import_tools(*import); };
}

}  // namespace tool_binding::cli
