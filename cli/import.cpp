// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>

#include "command.hpp"
#include "input.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "output.hpp"
#include "page.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::cli {

namespace {

struct Import {
  std::string path = standard_input;
  bool is_lenient = false;
  bool is_verbose = false;
};

json::ImportedTools read_tools(const Import& import) {
  const std::string text = read_file(import.path);
  try {
    return json::import_tools(text, import.is_lenient ? json::Undeclarable::takes_text : json::Undeclarable::left_out);
  } catch (const ValueError& error) {
    throw UnusableFile(import.path, error.message());
  }
}

/// "12: 'limit' of search: " and what became of it, or the place where that says more.
std::string line_of(const json::Remark& remark) {
  std::string line = std::to_string(remark.line) + ": ";
  if (!remark.parameter.empty()) {
    line.append(quoted_form(Value(remark.parameter))).append(" of ");
  }
  return line.append(remark.tool.empty() ? remark.place : remark.tool).append(": ").append(remark.words).append("\n");
}

/// "11,392"
std::string with_commas(std::size_t count) {
  constexpr int group = 3;
  std::string digits = std::to_string(count);
  for (int place = static_cast<int>(digits.size()) - group; place > 0; place -= group) {
    digits.insert(static_cast<std::size_t>(place), 1, ',');
  }
  return digits;
}

std::size_t count_of(const json::ImportedTools& imported, json::Remark::Kind kind) {
  return static_cast<std::size_t>(std::count_if(imported.remarks.begin(), imported.remarks.end(),
                                                [&](const json::Remark& remark) { return remark.kind == kind; }));
}

/// "11,392 of 14,413 tools, 1,749 rules lost"
std::string summary_of(const json::ImportedTools& imported) {
  const std::size_t lost = count_of(imported, json::Remark::Kind::rule_lost);
  return with_commas(imported.entries.size()) + " of " + with_commas(imported.listed) +
         (imported.listed == 1 ? " tool, " : " tools, ") + with_commas(lost) + (lost == 1 ? " rule" : " rules") +
         " lost\n";
}

ExitStatus import_tools(const Import& import) {
  const json::ImportedTools imported = read_tools(import);
  const std::string name = import.path == standard_input ? "standard input" : import.path;
  std::string said;
  for (const json::Remark& remark : imported.remarks) {
    if (import.is_verbose || remark.kind != json::Remark::Kind::annotation) {
      said.append(name).append(":").append(line_of(remark));
    }
  }
  std::cerr << said << summary_of(imported);
  if (imported.entries.empty()) {
    throw UnusableFile(import.path, "no tool of the list can be declared");
  }
  print(page_of(json::registry_value(imported.entries)));
  return count_of(imported, json::Remark::Kind::tool_left_out) == 0 ? ExitStatus::answered : ExitStatus::refused;
}

}  // namespace

Run declare_import(CLI::App& command) {
  const auto import = std::make_shared<Import>();
  add_value(command, "FILE", import->path, "A list of tools with their schemas; - or nothing: standard input", "FILE");
  add_flag(command, "--lenient", import->is_lenient, "Let a parameter take text where no type says what it is");
  add_flag(command, "--verbose", import->is_verbose,
           "Name what changes nothing as well: titles, other spellings of types");
  return [import] { return import_tools(*import); };
}

}  // namespace tool_binding::cli
