// SPDX-License-Identifier: MIT
#include "tool_binding/report/advice.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "numbers.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::report {

namespace {

constexpr std::array<std::string_view, 6> rule_words = {"add_synonym", "add_action_synonym", "add_value",
                                                        "widen_bound", "add_default",        "drop_unused"};

/// With no occurrence in 300 requests, less than one caller in a hundred needs it, at a confidence of 95%.
constexpr std::array<Evidence, 6> evidence_rows = {{
    {10, 0.8, "an unknown name that came at least 10 times, and in 80% of them with the same parameter left out"},
    {10, 0.05, "an unknown action near a declared one, at least 10 times and in 5% of the tool's requests"},
    {10, 0.05, "a value that came at least 10 times, and in 5% of the requests that gave the parameter"},
    {10, 0.05, "at least 10 numbers beyond the bound, and 5% of those that were given"},
    {10, 0.5, "at least 10 requests that lack the parameter, and more than half of those that need it"},
    {300, 0, "not once in at least 300 requests to the tool: at a confidence of 95%, fewer than 1% need it"},
}};

std::string quoted(const Text& name) { return quoted_form(Value(name)); }

std::string times_of(std::uint64_t times) { return with_commas(times) + (times == 1 ? " time" : " times"); }

bool suffices(Rule rule, std::uint64_t times, std::uint64_t of) {
  const Evidence& evidence = evidence_for(rule);
  return times >= evidence.least_times && share_of(times, of) >= evidence.least_share;
}

/// `"synonyms": ["max", "top"]`: a member of a registry file with one more text than it has.
std::string member_with(std::string_view name, std::vector<Text> texts, const Text& added) {
  texts.push_back(added);
  return json::write(Value(Text(name))) + ": " + json::write(Value(std::vector<Value>(texts.begin(), texts.end())));
}

std::string member_of(std::string_view name, const Value& value) {
  return json::write(Value(Text(name))) + ": " + json::write(value);
}

const Row* row_of(const ToolUse& use, Seen seen, std::size_t parameter = Row::none) {
  const auto found = use.rows.find({seen, parameter});
  return found == use.rows.end() ? nullptr : &found->second;
}

/// The one parameter that an unknown name stands for, since nearly all its calls lack it: the nearest one, unless the
/// call can do without it and needs another.
const ParamSpec* meant_by(const ToolUse& use, const Count& count) {
  const ParamSpec* const nearest = count.proposal.empty() ? nullptr : use.tool.param(count.proposal);
  std::vector<const ParamSpec*> others;
  bool lacks_nearest = false;
  for (const auto& [name, times] : count.lacking) {
    const ParamSpec* const lacked = suffices(Rule::add_synonym, times, count.times) ? use.tool.param(name) : nullptr;
    if (lacked != nullptr && lacked == nearest) {
      lacks_nearest = true;
    } else if (lacked != nullptr) {
      others.push_back(lacked);
    }
  }
  if (lacks_nearest && (others.empty() || nearest->required || !nearest->required_for.empty())) {
    return nearest;
  }
  return others.size() == 1 ? others.front() : nullptr;
}

void advise_synonyms(std::vector<Advice>& advice, const ToolUse& use) {
  const Row* const row = row_of(use, Seen::unknown_parameter);
  if (row == nullptr) {
    return;
  }
  for (const auto& [name, count] : row->values.all()) {
    const ParamSpec* const meant = meant_by(use, count);
    if (meant == nullptr) {
      continue;
    }
    const std::uint64_t together = std::min(count.lacking.at(meant->name), count.times);
    advice.push_back({.rule = Rule::add_synonym,
                      .tool = use.tool.name(),
                      .subject = meant->name,
                      .words = "Declare " + quoted(name) + " as a synonym of " + quoted(meant->name) + ".",
                      .evidence = quoted(name) + " came " + times_of(count.times) + ", " +
                                  (together == count.times ? "always" : with_commas(together) + " of them") +
                                  " without " + quoted(meant->name) + ".",
                      .lines = member_with("synonyms", meant->synonyms, name),
                      .times = count.times,
                      .example = count.example});
  }
}

void advise_action_synonyms(std::vector<Advice>& advice, const ToolUse& use) {
  const Row* const row = row_of(use, Seen::unknown_action);
  if (row == nullptr) {
    return;
  }
  for (const auto& [name, count] : row->values.all()) {
    const ActionSpec* const near = count.proposal.empty() ? nullptr : use.tool.action(count.proposal);
    if (near == nullptr || !suffices(Rule::add_action_synonym, count.times, use.outcomes.total())) {
      continue;
    }
    advice.push_back({.rule = Rule::add_action_synonym,
                      .tool = use.tool.name(),
                      .subject = near->name,
                      .words = "Declare " + quoted(name) + " as a synonym of the action " + quoted(near->name) + ".",
                      .evidence = quoted(name) + " came as an action " + times_of(count.times) + " in " +
                                  with_commas(use.outcomes.total()) + " requests.",
                      .lines = member_with("synonyms", near->synonyms, name),
                      .times = count.times,
                      .example = count.example});
  }
}

void advise_values(std::vector<Advice>& advice, const ToolUse& use, std::size_t place) {
  const Row* const row = row_of(use, Seen::unlisted_value, place);
  if (row == nullptr) {
    return;
  }
  const ParamSpec& param = use.tool.params()[place];
  for (const auto& [value, count] : row->values.all()) {
    if (!suffices(Rule::add_value, count.times, use.given[place])) {
      continue;
    }
    advice.push_back({.rule = Rule::add_value,
                      .tool = use.tool.name(),
                      .subject = param.name,
                      .words = "See whether " + quoted(param.name) + " can take " + quoted(value) +
                               ", or whether its description leads callers to it.",
                      .evidence = quoted(value) + " came " + times_of(count.times) + ", in " +
                                  percent(count.times, use.given[place]) + " of the requests that gave " +
                                  quoted(param.name) + ".",
                      .lines = member_with("enum", param.enum_, value),
                      .times = count.times,
                      .example = count.example});
  }
}

/// "500 to 1000", or the one number that was sent.
std::string spread_of(const Row& row) {
  const std::string smallest = json::write(row.smallest);
  const std::string largest = json::write(row.largest);
  return smallest == largest ? smallest : smallest + " to " + largest;
}

void advise_bound(std::vector<Advice>& advice, const ToolUse& use, std::size_t place, Seen seen) {
  const Row* const row = row_of(use, seen, place);
  if (row == nullptr || !suffices(Rule::widen_bound, row->times, use.given[place])) {
    return;
  }
  const ParamSpec& param = use.tool.params()[place];
  const bool is_maximum = seen == Seen::above_maximum;
  const std::string_view bound = is_maximum ? "maximum" : "minimum";
  const Value& farthest = is_maximum ? row->largest : row->smallest;
  advice.push_back({.rule = Rule::widen_bound,
                    .tool = use.tool.name(),
                    .subject = param.name,
                    .words = "Look at the " + std::string(bound) + " of " + quoted(param.name) +
                             ": widen it, or name it in the description.",
                    .evidence = percent(row->times, use.given[place]) + " of the " + with_commas(use.given[place]) +
                                " requests that gave " + quoted(param.name) + " were beyond " +
                                json::write(row->bound) + ": " + spread_of(*row) + ".",
                    .lines = member_of(bound, farthest),
                    .times = row->times,
                    .example = row->values.most_frequent().front()->second.example});
}

/// How many requests needed the parameter: all, or those that ran an action which needs it.
std::uint64_t needed_by(const ToolUse& use, const ParamSpec& param) {
  if (param.required || use.actions.empty()) {
    return use.outcomes.total();
  }
  std::uint64_t times = 0;
  for (const auto& [action, outcomes] : use.actions) {
    times += param.required_by(action) ? outcomes.total() : 0;
  }
  return times;
}

/// The plainest value of a type: a place to begin, since no report knows what a call without one means.
Value plain_default(const ParamSpec& param) {
  if (!param.enum_.empty()) {
    return param.enum_.front();
  }
  if (param.type == "boolean") {
    return false;
  }
  if (param.type == "array") {
    return std::vector<Value>();
  }
  if (param.type == "string") {
    return Text();
  }
  return param.minimum.is_null() ? Value(0) : param.minimum;
}

void advise_default(std::vector<Advice>& advice, const ToolUse& use, std::size_t place) {
  const Row* const row = row_of(use, Seen::missing_parameter, place);
  const ParamSpec& param = use.tool.params()[place];
  if (row == nullptr || !suffices(Rule::add_default, row->times, needed_by(use, param))) {
    return;
  }
  advice.push_back({.rule = Rule::add_default,
                    .tool = use.tool.name(),
                    .subject = param.name,
                    .words = "Give " + quoted(param.name) +
                             " a default, and no longer require it; the value below only shows where it stands.",
                    .evidence = with_commas(row->times) + " of the " + with_commas(needed_by(use, param)) +
                                " requests that needed " + quoted(param.name) + " did not give it.",
                    .lines = member_of("default", plain_default(param)),
                    .times = row->times,
                    .example = row->values.most_frequent().front()->second.example});
}

/// A name without the white space around it, ASCII letters in lower case: near enough to how actions are compared to
/// see which synonyms were used.
std::string folded(std::string_view text) {
  std::string out;
  for (const char byte : text) {
    if (byte != ' ' && byte != '\t') {
      out += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    }
  }
  return out;
}

bool was_used(const Row* row, const Text& synonym) {
  return row != nullptr && (!row->values.is_exact() ||
                            std::any_of(row->values.all().begin(), row->values.all().end(),
                                        [&](const auto& entry) { return folded(entry.first) == folded(synonym); }));
}

/// What nobody used of a tool, each as a person names it.
std::vector<std::string> unused_of(const ToolUse& use) {
  std::vector<std::string> unused;
  const auto params = use.tool.params();
  for (std::size_t place = 0; place < params.size(); ++place) {
    if (use.given[place] == 0 && row_of(use, Seen::missing_parameter, place) == nullptr) {
      unused.push_back("the parameter " + quoted(params[place].name));
      continue;
    }
    for (const Text& synonym : params[place].synonyms) {
      if (!was_used(row_of(use, Seen::synonym_read, place), synonym) &&
          !was_used(row_of(use, Seen::synonym_left_out, place), synonym)) {
        unused.push_back("the synonym " + quoted(synonym) + " of " + quoted(params[place].name));
      }
    }
  }
  for (const ActionSpec& action : use.tool.actions()) {
    if (!use.actions.contains(action.name)) {
      unused.push_back("the action " + quoted(action.name));
      continue;
    }
    for (const Text& synonym : action.synonyms) {
      if (!was_used(row_of(use, Seen::action_synonym_read), synonym)) {
        unused.push_back("the synonym " + quoted(synonym) + " of the action " + quoted(action.name));
      }
    }
  }
  return unused;
}

void advise_unused(std::vector<Advice>& advice, const ToolUse& use) {
  const std::vector<std::string> unused = unused_of(use);
  if (unused.empty() || !suffices(Rule::drop_unused, use.outcomes.total(), use.outcomes.total())) {
    return;
  }
  std::string names;
  for (const std::string& name : unused) {
    names.append(names.empty() ? "" : ", ").append(name);
  }
  advice.push_back({.rule = Rule::drop_unused,
                    .tool = use.tool.name(),
                    .words = "See whether these can go: " + names + ".",
                    .evidence = "Nobody used them in " + with_commas(use.outcomes.total()) + " requests.",
                    .lines = {}});
}

}  // namespace

std::string_view word_of(Rule rule) noexcept { return rule_words[static_cast<std::size_t>(rule)]; }

const Evidence& evidence_for(Rule rule) noexcept { return evidence_rows[static_cast<std::size_t>(rule)]; }

std::vector<Advice> advice_on(const Report& report) {
  std::vector<Advice> advice;
  for (const ToolUse& use : report.tools) {
    advise_synonyms(advice, use);
    advise_action_synonyms(advice, use);
    for (std::size_t place = 0; place < use.tool.params().size(); ++place) {
      advise_values(advice, use, place);
      advise_bound(advice, use, place, Seen::below_minimum);
      advise_bound(advice, use, place, Seen::above_maximum);
      advise_default(advice, use, place);
    }
    advise_unused(advice, use);
  }
  std::stable_sort(advice.begin(), advice.end(),
                   [](const Advice& left, const Advice& right) { return left.times > right.times; });
  return advice;
}

}  // namespace tool_binding::report
