// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "colours.hpp"
#include "command.hpp"
#include "in_order.hpp"
#include "loading.hpp"
#include "observing.hpp"
#include "output.hpp"
#include "progress.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/report/comparison.hpp"
#include "tool_binding/report/tally.hpp"

namespace tool_binding::cli {

namespace {

struct CompareOptions {
  std::string before;
  std::string after;
  RecordedRequests requests;
  bool as_json = false;
  bool lists = false;
  std::string fails_on = "changed";
};

struct Registries {
  report::Registry before;
  report::Registry after;
};

/// Loads both, and names the faults of both at once.
void load(Registries& registries, const CompareOptions& options) {
  std::string faults;
  for (const auto& [path, registry] :
       {std::pair(&options.before, &registries.before), std::pair(&options.after, &registries.after)}) {
    try {
      registry->handlers = load_registry(*path, registry->tools);
    } catch (const UnusableFile& unusable) {
      faults.append(faults.empty() ? "" : "\n").append(unusable.message());
    }
  }
  if (!faults.empty()) {
    throw UnusableFile(Text(faults));
  }
}

struct ChangedLine {
  report::ChangedRequest request;
  Line line;
};

/// What was seen of the requests of a block.
struct Differences {
  std::vector<ChangedLine> changed;
  std::vector<report::Sight> no_requests;
  std::size_t requests = 0;
  std::size_t file = 0;
  std::size_t size = 0;
};

/// Compares the answers to lines, in one thread.
class Comparing {
 public:
  explicit Comparing(const Registries& registries) : registries_(registries) {}

  void compare(const Line& line, Differences& differences) {
    try {
      const Value request = read_line(reader_, line.text);
      const Call call = read_call(request, envelope_of(request).shape);
      ++differences.requests;
      std::optional<report::ChangedRequest> changed =
          report::compare(registries_.before, registries_.after, call.tool, call.arguments.mapping());
      if (changed) {
        differences.changed.push_back({std::move(*changed), line});
      }
    } catch (const ValueError& error) {
      differences.no_requests.push_back(report::sight_of_no_request(fault_of(error), {line.number, line.text}));
    }
  }

 private:
  const Registries& registries_;
  json::Reader reader_;
};

std::string listed(const ChangedLine& changed, const std::string& file) {
  const report::ChangedRequest& request = changed.request;
  return json::write(ArgumentMap{{"file", file},
                                 {"line", changed.line.number},
                                 {"tool", request.tool},
                                 {"change", word_of(request.change)},
                                 {"cause", request.cause},
                                 {"before", request.before},
                                 {"after", request.after}}) +
         "\n";
}

/// Counts what was seen of a block, and lists it where that is asked for; false when nobody reads the list.
bool take(report::Comparison& comparison, Differences& differences, const std::string& file, bool lists) {
  std::string list;
  comparison.requests += differences.requests;
  for (ChangedLine& changed : differences.changed) {
    if (lists) {
      list += listed(changed, file);
    }
    comparison.add(std::move(changed.request), {file, changed.line.number, report::shortened(changed.line.text)});
  }
  count(comparison.no_requests, differences.no_requests, file);
  differences.changed.clear();
  differences.no_requests.clear();
  differences.requests = 0;
  return print(list);
}

report::Comparison compare_all(const Registries& registries, const CompareOptions& options) {
  const std::vector<std::string> paths = paths_of(options.requests);
  report::Comparison comparison;
  comparison.gone = gone_tools(registries.before, registries.after);
  Progress progress(paths);
  InOrder<Differences> blocks{InputBlocks(paths), [&](Differences& differences) {
                                progress.advance(differences.size);
                                return take(comparison, differences, paths[differences.file], options.lists);
                              }};
  blocks.run(options.requests.jobs, [&] {
    return [comparing = std::make_shared<Comparing>(registries)](const Block& block, Differences& differences,
                                                                 const auto&) {
      differences.file = block.file();
      differences.size = block.size();
      block.each_line([&](const Line& line) { comparing->compare(line, differences); });
    };
  });
  return comparison;
}

bool is_failure(const report::Comparison& comparison, const std::string& fails_on) {
  using report::Change;
  return comparison.times(Change::now_refused) != 0 ||
         (fails_on == "changed" &&
          comparison.times(Change::other_arguments) + comparison.times(Change::other_keywords) != 0);
}

ExitStatus show_comparison(const CompareOptions& options) {
  Registries registries;
  load(registries, options);
  const report::Comparison comparison = compare_all(registries, options);
  if (!options.lists) {
    print(options.as_json ? json::write(comparison_value(comparison)) + "\n" : text_page(comparison, text_style()));
  }
  return is_failure(comparison, options.fails_on) ? ExitStatus::refused : ExitStatus::answered;
}

}  // namespace

Run declare_compare(CLI::App& command) {
  const auto options = std::make_shared<CompareOptions>();
  command.add_option("--registry", options->before, "The file that declares the tools")->type_name("FILE")->required();
  command.add_option("--with", options->after, "The file that declares them otherwise")->type_name("FILE")->required();
  CLI::Option* const json = command.add_flag("--json", options->as_json, "Write the counts and examples for programs");
  command.add_flag("--list", options->lists, "Write a line of JSON for each request that is answered otherwise")
      ->excludes(json);
  command
      .add_option("--fail-on", options->fails_on,
                  "What makes the exit status 1: requests that are now refused, or also those that mean something "
                  "else; changed unless it is given")
      ->type_name("refused|changed")
      ->check(CLI::IsMember({"refused", "changed"}));
  add_recorded_requests(command, options->requests);
  command.callback([options] {
    std::vector<std::string> paths = paths_of(options->requests);
    paths.insert(paths.end(), {options->before, options->after});
    check_standard_input(paths);
  });
  return [options] { return show_comparison(*options); };
}

}  // namespace tool_binding::cli
