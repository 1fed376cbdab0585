// SPDX-License-Identifier: MIT
#include <charconv>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "command.hpp"
#include "input.hpp"
#include "loading.hpp"
#include "options.hpp"
#include "output.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/json/registry_file.hpp"

namespace tool_binding::cli {

namespace {

json::RegistryFile read_registry_file(const std::string& path) {
  const std::string text = read_file(path);
  try {
    return json::RegistryFile(text);
  } catch (const json::ParseError& error) {
    throw UnusableFile(path, error.message());
  }
}

/// The record that `place` begins with, as "tools[3].name" with the fourth of the "tools"; it is taken off the place.
template <class Record>
const Record* take_item(std::string_view& place, std::string_view list, std::span<const Record> records) {
  if (!place.starts_with(list) || !place.substr(list.size()).starts_with('[')) {
    return nullptr;
  }
  std::size_t index = records.size();
  const std::string_view digits = place.substr(list.size() + 1);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  place = digits.substr(static_cast<std::size_t>(end - digits.data()) + 1);
  return index < records.size() ? &records[index] : nullptr;
}

/// " ('limit' of search)", the names of what is around a place.
std::string names_around(std::string_view place, std::span<const RegistryEntry> entries) {
  const RegistryEntry* const entry = take_item(place, "tools", entries);
  if (entry == nullptr || entry->tool.name.empty()) {
    return {};
  }
  const ToolDeclaration& tool = entry->tool;
  std::string names = " (";
  if (const auto* const param = take_item(place, ".params", std::span<const ParamSpec>(tool.params))) {
    names.append(quoted_form(Value(param->name))).append(" of ");
  } else if (const auto* const action = take_item(place, ".actions", std::span<const ActionSpec>(tool.actions))) {
    names.append(quoted_form(Value(action->name))).append(" of ");
  }
  return names.append(tool.name).append(")");
}

/// A line for each finding, which begins as editors expect it.
ExitStatus check(const std::string& path) {
  const std::string name = path == standard_input ? "standard input" : path;
  std::string out;
  ExitStatus status = ExitStatus::answered;
  const json::RegistryFile file = read_registry_file(path);
  for (const RegistryFinding& finding : file.check()) {
    out.append(name).append(":").append(std::to_string(finding.line));
    out.append(is_error(finding.kind) ? ": error: " : ": warning: ");
    out.append(finding.place.empty() ? "the file" : finding.place).append(names_around(finding.place, file.entries()));
    out.append(": ").append(finding.words).append("\n");
    status = is_error(finding.kind) ? ExitStatus::unusable : status;
  }
  print(out);
  return status;
}

}  // namespace

Run declare_check(CLI::App& command) {
  const auto path = std::make_shared<std::string>(standard_input);
  add_value(command, "FILE,--registry", *path, "The file that declares the tools; - or nothing: standard input",
            "FILE");
  return [path] { return check(*path); };
}

}  // namespace tool_binding::cli
