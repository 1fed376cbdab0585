// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "command.hpp"
#include "input.hpp"
#include "loading.hpp"
#include "output.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/json/registry_file.hpp"

namespace tool_binding::cli {

namespace {

std::vector<Finding> findings_of(const std::string& path) {
  const std::string text = read_file(path);
  try {
    return json::RegistryFile(text).check();
  } catch (const json::ParseError& error) {
    throw UnusableFile(path, error.message());
  }
}

/// A line for each finding, which begins as editors expect it.
ExitStatus check(const std::string& path) {
  const std::string name = path == standard_input ? "standard input" : path;
  std::string out;
  ExitStatus status = ExitStatus::answered;
  for (const Finding& finding : findings_of(path)) {
    out.append(name).append(":").append(std::to_string(finding.line));
    out.append(is_error(finding.kind) ? ": error: " : ": warning: ");
    out.append(finding.place.empty() ? "the file" : finding.place).append(": ").append(finding.words).append("\n");
    status = is_error(finding.kind) ? ExitStatus::unusable : status;
  }
  print(out);
  return status;
}

}  // namespace

Run declare_check(CLI::App& command) {
  const auto path = std::make_shared<std::string>(standard_input);
  command.add_option("FILE,--registry", *path, "The file that declares the tools; - or nothing: standard input")
      ->type_name("FILE");
  return [path] { return check(*path); };
}

}  // namespace tool_binding::cli
