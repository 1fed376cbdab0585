// SPDX-License-Identifier: MIT
#include "tool_binding/report/report.hpp"

#include <memory>
#include <string>
#include <vector>

#include "command.hpp"
#include "loading.hpp"
#include "observing.hpp"
#include "options.hpp"
#include "output.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/report/pages.hpp"

namespace tool_binding::cli {

namespace {

struct ReportOptions {
  std::string registry;
  std::vector<std::string> merged;  ///< reports to add, instead of a registry and requests
  RecordedRequests requests;
  bool as_json = false;
  std::string html;  ///< the path of a page to write; empty for none
};

report::Report read_report(const std::string& path) {
  const std::string text = read_file(path);
  try {
    return report::report_of(json::read(text));
  } catch (const ValueError& error) {
    throw UnusableFile(path, error.message());
  }
}

report::Report merged(const std::vector<std::string>& paths) {
  report::Report all = read_report(paths.front());
  for (std::size_t place = 1; place < paths.size(); ++place) {
    try {
      all.merge(read_report(paths[place]));
    } catch (const UnusableFile&) {
      throw;
    } catch (const ValueError& error) {
      throw UnusableFile(paths[place], error.message());
    }
  }
  return all;
}

report::Report made_report(const ReportOptions& options) {
  if (!options.merged.empty()) {
    return merged(options.merged);
  }
  static_cast<void>(load_registry(options.registry));
  return observe(TOOLS, options.requests);
}

ExitStatus show_report(const ReportOptions& options) {
  const report::Report report = made_report(options);
  if (!options.html.empty()) {
    write_file(options.html, html_page(report));
    if (!options.as_json) {
      return ExitStatus::answered;
    }
  }
  print(options.as_json ? json::write(report_value(report)) + "\n"
                        : text_page(report, output_style(options.requests.colour)));
  return ExitStatus::answered;
}

void check_options(const ReportOptions& options) {
  if (options.registry.empty() == options.merged.empty()) {
    throw WrongUsage("a report needs either --registry, and requests, or --merge");
  }
  if (!options.merged.empty() && !options.requests.paths.empty()) {
    throw WrongUsage("--merge adds reports: requests are read with --registry");
  }
  std::vector<std::string> paths = options.merged;
  if (paths.empty()) {
    paths = paths_of(options.requests);
    paths.push_back(options.registry);
  }
  check_standard_input(paths);
}

}  // namespace

Run declare_report(CLI::App& command) {
  const auto options = std::make_shared<ReportOptions>();
  add_value(command, "--registry", options->registry, "The file that declares the tools", "FILE");
  add_values(command, "--merge", options->merged, "Add reports that --json wrote, instead of reading requests", "FILE");
  add_flag(command, "--json", options->as_json, "Write the report for programs, and for --merge");
  add_value(command, "--html", options->html, "Write the report as a page for a browser, instead of text", "FILE");
  add_recorded_requests(command, options->requests);
  add_check(command, [options] { check_options(*options); });
  return [options] { return show_report(*options); };
}

}  // namespace tool_binding::cli
