// SPDX-License-Identifier: MIT
#include "tool_binding/report/report.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "declared_value.hpp"
#include "numbers.hpp"
#include "tool_binding/errors.hpp"

namespace tool_binding::report {

namespace {

constexpr std::size_t count_of_findings = 12;
constexpr std::array<std::string_view, 5> other_words = {"coerced", "blank_left_out", "number_too_large",
                                                         "unknown_tool", "no_request"};

/// Fewer names are counted exactly for each of more rows, so that the memory of all has one bound.
std::size_t limit_for(const ToolTable& table) {
  constexpr std::size_t all = 200'000;
  std::size_t rows = 1;
  for (const ToolSpec& tool : table.all()) {
    rows += 1 + tool.params().size();
  }
  return std::clamp<std::size_t>(all / rows, 16, 1024);
}

}  // namespace

std::string_view word_of(Seen seen) noexcept {
  const auto place = static_cast<std::size_t>(seen);
  return place < count_of_findings ? tool_binding::word_of(static_cast<Finding::Kind>(place))
                                   : other_words[place - count_of_findings];
}

Outcomes& Outcomes::operator+=(const Outcomes& other) noexcept {
  clean += other.clean;
  repaired += other.repaired;
  refused += other.refused;
  return *this;
}

void Row::spread_to(const Value& number) {
  if (smallest.is_null() || is_below(number, smallest)) {
    smallest = number;
  }
  if (largest.is_null() || is_below(largest, number)) {
    largest = number;
  }
}

void Row::merge(const Row& later) {
  times += later.times;
  values.merge(later.values);
  if (!later.smallest.is_null()) {
    spread_to(later.smallest);
    spread_to(later.largest);
    bound = later.bound;
  }
}

Report::Report(const ToolTable& table) : Report(limit_for(table)) {
  for (const ToolSpec& tool : table.all()) {
    tools.emplace_back(tool);
  }
}

Outcomes Report::outcomes() const noexcept {
  Outcomes all = {.refused = unknown_tools.times};
  for (const ToolUse& use : tools) {
    all += use.outcomes;
  }
  return all;
}

void Report::merge(const Report& later) {
  const auto has_same_name = [](const ToolUse& left, const ToolUse& right) {
    return left.tool.name() == right.tool.name();
  };
  if (!std::equal(tools.begin(), tools.end(), later.tools.begin(), later.tools.end(), has_same_name)) {
    throw ValueError("the reports are on different tools: only reports on one registry can be merged");
  }
  for (std::size_t place = 0; place < tools.size(); ++place) {
    ToolUse& use = tools[place];
    const ToolUse& more = later.tools[place];
    if (!use.is_used()) {
      use = more;
      continue;
    }
    if (!more.is_used()) {
      continue;
    }
    if (declared_value(use.tool) != declared_value(more.tool)) {
      throw ValueError("'" + std::string(use.tool.name()) +
                       "' is declared otherwise in the reports: only reports on one registry can be merged");
    }
    add_counts(use, more);
    for (const auto& [key, row] : more.rows) {
      use.rows.try_emplace(key, limit).first->second.merge(row);
    }
  }
  unknown_tools.merge(later.unknown_tools);
  no_requests.merge(later.no_requests);
}

void add_counts(ToolUse& use, const ToolUse& more) {
  use.outcomes += more.outcomes;
  for (const auto& [action, outcomes] : more.actions) {
    use.actions[action] += outcomes;
  }
  for (std::size_t place = 0; place < use.given.size(); ++place) {
    use.given[place] += more.given[place];
  }
}

}  // namespace tool_binding::report
