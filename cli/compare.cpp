// SPDX-License-Identifier: MIT
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "command.hpp"
#include "in_order.hpp"
#include "loading.hpp"
#include "observing.hpp"
#include "options.hpp"
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

/// What was seen of the requests of a block.
struct Differences {
  /// How often a change was seen here, with its first request unless this thread has handed on an earlier one.
  std::map<report::Comparison::Key, report::Comparison::Changed> changed;
  std::string list;  ///< a line for each, where that is asked for
  std::vector<report::Sight> no_requests;
  std::size_t requests = 0;
  std::size_t file = 0;
  std::size_t size = 0;
};

std::string listed(const std::string& file, const Line& line, const Text& tool, const report::Difference& difference) {
  return json::write(ArgumentMap{{"file", file},
                                 {"line", line.number},
                                 {"tool", tool},
                                 {"change", word_of(difference.change)},
                                 {"cause", difference.cause},
                                 {"before", answer_value(difference.before)},
                                 {"after", answer_value(difference.after)}}) +
         "\n";
}

/// Compares the answers to lines, in one thread. Of requests that change alike only the first is handed on whole, since
/// what one thread makes and another throws away makes both wait.
class Comparing {
 public:
  Comparing(const Registries& registries, bool lists) : registries_(registries), lists_(lists) {}

  void compare(const Line& line, const std::string& file, Differences& differences) {
    try {
      const Value request = read_line(reader_, line.text);
      const Call call = read_call(request, envelope_of(request).shape);
      ++differences.requests;
      const std::optional<report::Difference> difference =
          report::compare(registries_.before, registries_.after, call.tool, call.arguments.mapping());
      if (difference) {
        add(line, file, call.tool, *difference, differences);
      }
    } catch (const ValueError& error) {
      differences.no_requests.push_back(report::sight_of_no_request(fault_of(error), {line.number, line.text}));
    }
  }

 private:
  void add(const Line& line, const std::string& file, const Text& tool, const report::Difference& difference,
           Differences& differences) {
    if (lists_) {
      differences.list += listed(file, line, tool, difference);
    }
    const report::Comparison::Key key(tool, difference.change, difference.cause);
    report::Comparison::Changed& changed = differences.changed[key];
    ++changed.times;
    if (handed_on_.insert(key).second) {
      changed.example = {file, line.number, report::shortened(line.text)};
      changed.before = answer_value(difference.before);
      changed.after = answer_value(difference.after);
    }
  }

  const Registries& registries_;
  bool lists_;
  json::Reader reader_;
  std::set<report::Comparison::Key> handed_on_;
};

/// Counts what was seen of a block, and lists it where that is asked for; false when nobody reads the list.
bool take(report::Comparison& comparison, Differences& differences, const std::string& file) {
  comparison.requests += differences.requests;
  for (auto& [key, here] : differences.changed) {
    report::Comparison::Changed& changed = comparison.changes[key];
    const std::uint64_t times = changed.times + here.times;
    if (changed.times == 0) {
      changed = std::move(here);
    }
    changed.times = times;
  }
  count(comparison.no_requests, differences.no_requests, file);
  const bool is_read = print(differences.list);
  differences.changed.clear();
  differences.list.clear();
  differences.no_requests.clear();
  differences.requests = 0;
  return is_read;
}

report::Comparison compare_all(const Registries& registries, const CompareOptions& options) {
  const std::vector<std::string> paths = paths_of(options.requests);
  report::Comparison comparison;
  comparison.gone = gone_tools(registries.before, registries.after);
  Progress progress(paths);
  InOrder<Differences> blocks{InputBlocks(paths), [&](Differences& differences) {
                                progress.advance(differences.size);
                                return take(comparison, differences, paths[differences.file]);
                              }};
  blocks.run(options.requests.jobs, [&] {
    return [comparing = std::make_shared<Comparing>(registries, options.lists), &paths](
               const Block& block, Differences& differences, const auto&) {
      differences.file = block.file();
      differences.size = block.size();
      block.each_line([&](const Line& line) { comparing->compare(line, paths[block.file()], differences); });
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
    print(options.as_json ? json::write(comparison_value(comparison)) + "\n"
                          : text_page(comparison, output_style(options.requests.colour)));
  }
  return is_failure(comparison, options.fails_on) ? ExitStatus::refused : ExitStatus::answered;
}

}  // namespace

Run declare_compare(CLI::App& command) {
  const auto options = std::make_shared<CompareOptions>();
  add_required_value(command, "--registry", options->before, "The file that declares the tools", "FILE");
  add_required_value(command, "--with", options->after, "The file that declares them otherwise", "FILE");
  add_flag(command, "--json", options->as_json, "Write the counts and examples for programs");
  add_flag(command, "--list", options->lists, "Write a line of JSON for each request that is answered otherwise");
  let_exclude_each_other(command, {"--json", "--list"});
  add_choice(command, "--fail-on", options->fails_on, {"refused", "changed"},
             "What makes the exit status 1: requests that are now refused, or also those that mean something else; "
             "changed unless it is given");
  add_recorded_requests(command, options->requests);
  add_check(command, [options] {
    std::vector<std::string> paths = paths_of(options->requests);
    paths.insert(paths.end(), {options->before, options->after});
    check_standard_input(paths);
  });
  return [options] { return show_comparison(*options); };
}

}  // namespace tool_binding::cli
