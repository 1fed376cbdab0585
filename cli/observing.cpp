// SPDX-License-Identifier: MIT
#include "observing.hpp"

#include <algorithm>
#include <deque>
#include <stdexcept>

#include "in_order.hpp"
#include "options.hpp"
#include "progress.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/report/tally.hpp"

namespace tool_binding::cli {

namespace {

/// What was seen of the requests of a block.
struct Glance {
  std::vector<report::Sight> sights;
  std::size_t file = 0;
  std::size_t size = 0;
};

/// Looks at lines, in one thread.
class Looking {
 public:
  explicit Looking(const ToolTable& table) : table_(table), observer_(table) {}

  void look(const Line& line, std::vector<report::Sight>& sights) {
    const report::Place place = {line.number, line.text};
    try {
      const Value request = read_line(reader_, line.text);
      look(read_call(request, envelope_of(request).shape), place, sights);
    } catch (const ValueError& error) {
      sights.push_back(report::sight_of_no_request(fault_of(error), place));
    }
  }

  [[nodiscard]] const report::Observer& observer() const noexcept { return observer_; }

 private:
  void look(const Call& call, const report::Place& place, std::vector<report::Sight>& sights) {
    const ToolSpec* const tool = table_.find(call.tool);
    if (tool == nullptr) {
      sights.push_back(report::sight_of_unknown_tool(call.tool, place));
      return;
    }
    try {
      const ArgumentMap& arguments = call.arguments.mapping();
      observer_.see(*tool, arguments, admit(*tool, arguments), place, sights);
    } catch (const std::overflow_error&) {
      observer_.see_overflow(*tool, place, sights);
    }
  }

  const ToolTable& table_;
  report::Observer observer_;
  json::Reader reader_;
};

}  // namespace

void add_recorded_requests(CLI::App& command, RecordedRequests& requests) {
  add_jobs_option(command, requests.jobs);
  add_colour_option(command, requests.colour);
  add_values(command, "REQUESTS", requests.paths, "Files of requests, a line each; - or nothing: standard input",
             "FILE");
}

void check_standard_input(const std::vector<std::string>& paths) {
  if (std::count(paths.begin(), paths.end(), standard_input) > 1) {
    throw WrongUsage("standard input is one file only: name the others by their paths");
  }
}

std::vector<std::string> paths_of(const RecordedRequests& requests) {
  return requests.paths.empty() ? std::vector<std::string>{standard_input} : requests.paths;
}

Text fault_of(const ValueError& error) {
  const std::string_view message = error.message();
  if (dynamic_cast<const json::ParseError*>(&error) != nullptr) {
    return message.substr(message.find(": ") + 2);
  }
  if (dynamic_cast<const InvalidRequest*>(&error) != nullptr) {
    return message;
  }
  throw;
}

report::Report observe(const ToolTable& table, const RecordedRequests& requests) {
  const std::vector<std::string> paths = paths_of(requests);
  report::Report report(table);
  Progress progress(paths);
  std::deque<Looking> threads;
  InOrder<Glance> blocks{InputBlocks(paths), [&](Glance& glance) {
                           count(report, glance.sights, paths[glance.file]);
                           glance.sights.clear();
                           progress.advance(glance.size);
                           return true;
                         }};
  blocks.run(requests.jobs, [&] {
    return [&looking = threads.emplace_back(table)](const Block& block, Glance& glance, const auto&) {
      block.each_line([&](const Line& line) { looking.look(line, glance.sights); });
      glance.file = block.file();
      glance.size = block.size();
    };
  });
  for (const Looking& looking : threads) {
    count(report, looking.observer());
  }
  return report;
}

}  // namespace tool_binding::cli
