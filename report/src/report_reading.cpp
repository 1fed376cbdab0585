// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include "tool_binding/errors.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/report/report.hpp"

namespace tool_binding::report {

namespace {

[[noreturn]] void refuse(std::string_view what) {
  throw ValueError("not a report of this version, as 'report --json' writes it: " + std::string(what));
}

const ArgumentMap& object(const Value& value) {
  if (!value.is_mapping()) {
    refuse("something in it is not an object");
  }
  return value.mapping();
}

const Value& member(const ArgumentMap& members, const Text& name) {
  const Value* const found = members.find(name);
  if (found == nullptr) {
    refuse("'" + std::string(name) + "' is left out");
  }
  return *found;
}

std::uint64_t number(const Value& value, std::string_view name) {
  const std::optional<std::int64_t> number = value.to_int64();
  if (!number || *number < 0) {
    refuse("'" + std::string(name) + "' is not a count");
  }
  return static_cast<std::uint64_t>(*number);
}

std::uint64_t number(const ArgumentMap& members, const Text& name) { return number(member(members, name), name); }

Text text(const ArgumentMap& members, const Text& name) {
  const Value& value = member(members, name);
  if (!value.is_text()) {
    refuse("'" + std::string(name) + "' is not text");
  }
  return value.shared_text();
}

std::span<const Value> list(const ArgumentMap& members, const Text& name) {
  const Value& value = member(members, name);
  if (!value.is_list()) {
    refuse("'" + std::string(name) + "' is not a list");
  }
  return value.list();
}

Outcomes read_outcomes(const ArgumentMap& members) {
  return {number(members, "clean"), number(members, "repaired"), number(members, "refused")};
}

Count read_count(const ArgumentMap& members) {
  const ArgumentMap& example = object(member(members, "example"));
  Count count = {.times = number(members, "times"),
                 .example = {text(example, "file"), number(example, "line"), text(example, "request")}};
  if (members.contains("proposal")) {
    count.proposal = text(members, "proposal");
  }
  if (const Value* const lacking = members.find("lacking")) {
    for (const auto& [name, times] : object(*lacking)) {
      count.lacking[name] = number(times, name);
    }
  }
  return count;
}

Row read_row(const ArgumentMap& members, std::size_t limit) {
  Row row(limit);
  row.times = number(members, "times");
  for (const Value& value : list(members, "values")) {
    row.values[text(object(value), "value")] = read_count(object(value));
  }
  row.values.set_shortfall(members.contains("shortfall") ? number(members, "shortfall") : 0);
  if (members.contains("bound")) {
    row.bound = member(members, "bound");
    row.smallest = member(members, "smallest");
    row.largest = member(members, "largest");
    for (const Value* const value : {&row.bound, &row.smallest, &row.largest}) {
      if (!value->is_integer() && !value->is_floating()) {
        refuse("a bound or a number beyond it is not a number");
      }
    }
  }
  return row;
}

Seen read_kind(std::string_view word) {
  for (int place = 0; place <= static_cast<int>(Seen::no_request); ++place) {
    if (word_of(static_cast<Seen>(place)) == word) {
      return static_cast<Seen>(place);
    }
  }
  refuse("no kind is '" + std::string(word) + "'");
}

std::size_t place_of_param(const ToolSpec& tool, const Text& name) {
  const auto names = tool.param_names();
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) {
    refuse("'" + std::string(tool.name()) + "' declares no '" + std::string(name) + "'");
  }
  return static_cast<std::size_t>(found - names.begin());
}

ToolSpec read_declaration(const Value& declared) {
  const Value registry = ArgumentMap{{"tools", std::vector<Value>{declared}}};
  return json::read_registry(json::write(registry)).front().tool;
}

ToolUse read_use(const ArgumentMap& members, std::size_t limit) {
  if (!members.contains("declared")) {
    return ToolUse(ToolSpec(ToolDeclaration{.name = text(members, "name")}));
  }
  ToolUse use(read_declaration(member(members, "declared")));
  use.outcomes = read_outcomes(members);
  for (const Value& action : list(members, "actions")) {
    const Value& name = member(object(action), "name");
    use.actions[name.is_null() ? Text() : text(object(action), "name")] = read_outcomes(object(action));
  }
  for (const auto& [name, times] : object(member(members, "given"))) {
    use.given[place_of_param(use.tool, name)] = number(times, name);
  }
  for (const Value& value : list(members, "rows")) {
    const ArgumentMap& row = object(value);
    const std::size_t place = row.contains("parameter") ? place_of_param(use.tool, text(row, "parameter")) : Row::none;
    use.rows.insert_or_assign({read_kind(text(row, "kind")), place}, read_row(row, limit));
  }
  return use;
}

}  // namespace

Report report_of(const Value& value) {
  const ArgumentMap& members = object(value);
  if (text(members, "format") != "tool-binding report 1") {
    refuse("its format is '" + std::string(text(members, "format")) + "'");
  }
  constexpr std::uint64_t fewest = 2;
  Report report(std::max(fewest, number(members, "limit")));
  for (const Value& tool : list(members, "tools")) {
    report.tools.push_back(read_use(object(tool), report.limit));
  }
  report.unknown_tools = read_row(object(member(members, "unknown_tools")), report.limit);
  report.no_requests = read_row(object(member(members, "no_requests")), report.limit);
  return report;
}

}  // namespace tool_binding::report
