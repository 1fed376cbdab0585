// SPDX-License-Identifier: MIT
#include <string>
#include <utility>

#include "declared_value.hpp"
#include "tool_binding/json/tool_list.hpp"
#include "tool_binding/report/advice.hpp"
#include "tool_binding/report/report.hpp"

namespace tool_binding::report {

namespace {

void add_outcomes(ArgumentMap& members, const Outcomes& outcomes) {
  members.append("clean", outcomes.clean);
  members.append("repaired", outcomes.repaired);
  members.append("refused", outcomes.refused);
}

Value example_value(const Example& example) {
  return ArgumentMap{{"file", example.file}, {"line", example.line}, {"request", example.request}};
}

Value count_value(const Text& what, const Count& count) {
  ArgumentMap members = {{"value", what}, {"times", count.times}};
  if (!count.proposal.empty()) {
    members.append("proposal", count.proposal);
  }
  if (!count.lacking.empty()) {
    ArgumentMap lacking;
    for (const auto& [name, times] : count.lacking) {
      lacking.append(name, times);
    }
    members.append("lacking", std::move(lacking));
  }
  members.append("example", example_value(count.example));
  return members;
}

/// Adds what a row counts. A shortfall is there only where the row does not count exactly.
void add_row(ArgumentMap& members, const Row& row) {
  members.append("times", row.times);
  if (!row.smallest.is_null()) {
    members.append("bound", row.bound);
    members.append("smallest", row.smallest);
    members.append("largest", row.largest);
  }
  if (!row.values.is_exact()) {
    members.append("shortfall", row.values.shortfall());
  }
  std::vector<Value> values;
  for (const auto* const entry : row.values.most_frequent()) {
    values.push_back(count_value(entry->first, entry->second));
  }
  members.append("values", std::move(values));
}

Value row_value(const ToolUse& use, Seen seen, std::size_t parameter, const Row& row) {
  ArgumentMap members = {{"kind", word_of(seen)}};
  if (parameter != Row::none) {
    members.append("parameter", use.tool.params()[parameter].name);
  }
  add_row(members, row);
  return members;
}

Value action_value(const Text& name, const Outcomes& outcomes) {
  ArgumentMap members;
  members.append("name", name.empty() ? Value() : Value(name));
  add_outcomes(members, outcomes);
  return members;
}

/// A tool that nobody asked for is there by its name alone.
Value use_value(const ToolUse& use) {
  ArgumentMap members = {{"name", use.tool.name()}};
  if (!use.is_used()) {
    return members;
  }
  add_outcomes(members, use.outcomes);
  std::vector<Value> actions;
  for (const auto& [name, outcomes] : use.actions) {
    actions.push_back(action_value(name, outcomes));
  }
  members.append("actions", std::move(actions));
  ArgumentMap given;
  for (std::size_t place = 0; place < use.given.size(); ++place) {
    given.append(use.tool.params()[place].name, use.given[place]);
  }
  members.append("given", std::move(given));
  std::vector<Value> rows;
  for (const auto& [key, row] : use.rows) {
    rows.push_back(row_value(use, key.first, key.second, row));
  }
  members.append("rows", std::move(rows));
  members.append("declared", declared_value(use.tool));
  return members;
}

Value row_value(const Row& row) {
  ArgumentMap members;
  add_row(members, row);
  return members;
}

Value advice_value(const Advice& advice) {
  ArgumentMap members = {{"rule", word_of(advice.rule)}, {"tool", advice.tool}};
  if (!advice.subject.empty()) {
    members.append("subject", advice.subject);
  }
  members.append("advice", advice.words);
  members.append("evidence", advice.evidence);
  if (!advice.lines.empty()) {
    members.append("lines", advice.lines);
  }
  if (advice.example.line != 0) {
    members.append("example", example_value(advice.example));
  }
  return members;
}

}  // namespace

Value declared_value(const ToolSpec& tool) {
  ToolDeclaration declaration = {.name = tool.name(),
                                 .actions = {tool.actions().begin(), tool.actions().end()},
                                 .default_action = tool.default_action(),
                                 .params = {tool.params().begin(), tool.params().end()}};
  for (ActionSpec& action : declaration.actions) {
    action.description = {};
  }
  for (ParamSpec& param : declaration.params) {
    param.description = {};
  }
  const RegistryEntry entry = {std::move(declaration)};
  return json::registry_value({&entry, 1}).mapping().find("tools")->list().front();
}

Value report_value(const Report& report) {
  ArgumentMap members = {{"format", "tool-binding report 1"}};
  const Outcomes outcomes = report.outcomes();
  members.append("requests", outcomes.total());
  add_outcomes(members, outcomes);
  members.append("limit", report.limit);
  std::vector<Value> advice;
  for (const Advice& one : advice_on(report)) {
    advice.push_back(advice_value(one));
  }
  members.append("advice", std::move(advice));
  members.append("unknown_tools", row_value(report.unknown_tools));
  members.append("no_requests", row_value(report.no_requests));
  std::vector<Value> tools;
  for (const ToolUse& use : report.tools) {
    tools.push_back(use_value(use));
  }
  members.append("tools", std::move(tools));
  return members;
}

}  // namespace tool_binding::report
