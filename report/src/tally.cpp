// SPDX-License-Identifier: MIT
#include "tool_binding/report/tally.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "declared_value.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/utils/text_values.hpp"

namespace tool_binding::report {

namespace {

using Found = Finding::Kind;

constexpr std::array<std::string_view, 7> kind_names = {"null", "boolean", "integer", "number",
                                                        "text", "list",    "object"};

std::string_view name_of(const Value& value) { return kind_names.at(static_cast<std::size_t>(value.kind())); }

/// What a value became: "text as integer", or for one that kept its kind how it was changed.
Text change_of(const Value& sent, const Value& became) {
  if (sent.kind() == became.kind()) {
    return sent.is_list() ? "items as text" : "spelled otherwise";
  }
  return std::string(name_of(sent)).append(" as ").append(name_of(became));
}

std::size_t place_of(const ToolSpec& tool, const ParamSpec* param) {
  return param == nullptr ? Row::none : static_cast<std::size_t>(param - tool.params().data());
}

/// The name or value that a finding is counted by.
Text value_of(const Finding& finding) {
  switch (finding.kind) {
    case Found::synonym_read:
    case Found::synonym_left_out:
    case Found::unknown_parameter:
      return shortened(finding.argument);
    case Found::action_synonym_read:
    case Found::unknown_action:
    case Found::unexpected_action:
      return shortened(plain_form(finding.sent));
    case Found::wrong_type:
      return shortened(json::write(finding.sent));
    case Found::unlisted_value:
    case Found::below_minimum:
    case Found::above_maximum:
      return shortened(plain_form(finding.read));
    case Found::missing_parameter:
      return finding.action;
    case Found::missing_action:
      break;
  }
  return {};
}

Sight sight_of(const Finding& finding, std::size_t tool_place, const ToolSpec& tool, const Place& place) {
  const bool has_bound = finding.kind == Found::below_minimum || finding.kind == Found::above_maximum;
  return {.tool = tool_place,
          .seen = static_cast<Seen>(finding.kind),
          .parameter = place_of(tool, finding.parameter),
          .value = value_of(finding),
          .proposal = finding.proposal,
          .number = has_bound ? finding.read : Value(),
          .bound = has_bound ? finding.used : Value(),
          .place = place};
}

/// Whether a value became another in a way that its sender has to know of: JSON writes the number 5.0 as 5 as well.
bool is_coerced(const Value& sent, const Value& became) {
  return became != sent && !(sent.is_integer() && became.is_floating());
}

/// Whether a synonym was sent beside the name that it stands for, which then is the argument.
bool is_doubled(const ParamSpec& param, const Text& name, const ArgumentMap& sent) {
  return name != param.name && sent.contains(param.name);
}

bool is_about_bound(const Admission& admission, const Text& name) {
  return std::any_of(admission.findings().begin(), admission.findings().end(), [&](const Finding& finding) {
    return finding.argument == name && (finding.kind == Found::below_minimum || finding.kind == Found::above_maximum);
  });
}

/// Whether a parameter is missing only since what was sent for it is a problem of its own.
bool was_sent(const Admission& admission, const Finding& missing) {
  return std::any_of(admission.findings().begin(), admission.findings().end(), [&](const Finding& finding) {
    return finding.parameter == missing.parameter &&
           (finding.kind == Found::wrong_type || finding.kind == Found::unlisted_value);
  });
}

bool is_missing(const Admission& admission, const Finding& finding) {
  return finding.kind == Found::missing_parameter && !was_sent(admission, finding);
}

/// The parameters that an unknown name may stand for: those that the call needs and lacks, and the nearest one unless
/// the call gives it.
std::vector<Text> lacking_of(const ToolSpec& tool, const Admission& admission, const Text& nearest) {
  std::vector<Text> names;
  for (const Finding& finding : admission.findings()) {
    if (is_missing(admission, finding)) {
      names.push_back(finding.parameter->name);
    }
  }
  const ParamSpec* const near = nearest.empty() ? nullptr : tool.param(nearest);
  if (near != nullptr && !admission.arguments().contains(near->name) &&
      std::find(names.begin(), names.end(), near->name) == names.end()) {
    names.push_back(near->name);
  }
  return names;
}

Text action_of(const Admission& admission) {
  const Value* const action = admission.arguments().find(ACTION_PARAM);
  return action != nullptr && action->is_text() ? action->shared_text() : Text();
}

void count(Row& row, const Sight& sight, const Text& file) {
  ++row.times;
  Count& count = row.values[sight.value];
  if (count.times++ == 0) {
    count.proposal = sight.proposal;
    count.example = {file, sight.place.line, shortened(sight.place.text)};
  }
  for (const Text& name : sight.lacking) {
    ++count.lacking[name];
  }
  if (!sight.number.is_null()) {
    row.spread_to(sight.number);
    row.bound = sight.bound;
  }
}

}  // namespace

Observer::Observer(const ToolTable& table) {
  for (const ToolSpec& tool : table.all()) {
    places_.emplace(&tool.record(), uses_.size());
    uses_.emplace_back(tool);
  }
}

void Observer::see(const ToolSpec& tool, const ArgumentMap& sent, const Admission& admission, const Place& place,
                   std::vector<Sight>& sights) {
  const std::size_t place_of_tool = places_.at(&tool.record());
  ToolUse& use = uses_[place_of_tool];
  const std::size_t before = sights.size();
  for (const Finding& finding : admission.findings()) {
    if (finding.kind == Found::missing_parameter && !is_missing(admission, finding)) {
      continue;
    }
    sights.push_back(sight_of(finding, place_of_tool, tool, place));
    if (finding.kind == Found::unknown_parameter) {
      sights.back().lacking = lacking_of(tool, admission, finding.proposal);
    }
  }
  see_arguments(use, place_of_tool, sent, admission, place, sights);
  Outcomes outcome;
  (!admission.is_admitted() ? outcome.refused : sights.size() == before ? outcome.clean : outcome.repaired) = 1;
  use.outcomes += outcome;
  if (!tool.actions().empty()) {
    use.actions[action_of(admission)] += outcome;
  }
}

/// Counts the parameters that were given, and sees what became of values without a finding.
void Observer::see_arguments(ToolUse& use, std::size_t place_of_tool, const ArgumentMap& sent,
                             const Admission& admission, const Place& place, std::vector<Sight>& sights) {
  for (const auto& [name, value] : sent) {
    const ParamSpec* const param = value.is_null() || is_reserved_name(name) ? nullptr : use.tool.param(name);
    if (param == nullptr || is_doubled(*param, name, sent)) {
      continue;
    }
    const std::size_t parameter = place_of(use.tool, param);
    if (value.is_text() && !param->blank_is_value && is_blank(value.text())) {
      sights.push_back({.tool = place_of_tool,
                        .seen = Seen::blank_left_out,
                        .parameter = parameter,
                        .value = shortened(value.text()),
                        .place = place});
      continue;
    }
    ++use.given[parameter];
    const Value* const became = admission.arguments().find(param->name);
    if (became != nullptr && is_coerced(value, *became) && !is_about_bound(admission, name)) {
      sights.push_back({.tool = place_of_tool,
                        .seen = Seen::coerced,
                        .parameter = parameter,
                        .value = change_of(value, *became),
                        .place = place});
    }
  }
}

void Observer::see_overflow(const ToolSpec& tool, const Place& place, std::vector<Sight>& sights) {
  const std::size_t place_of_tool = places_.at(&tool.record());
  ++uses_[place_of_tool].outcomes.refused;
  if (!tool.actions().empty()) {
    ++uses_[place_of_tool].actions[Text()].refused;
  }
  sights.push_back({.tool = place_of_tool, .seen = Seen::number_too_large, .place = place});
}

Sight sight_of_unknown_tool(const Text& name, const Place& place) {
  return {.seen = Seen::unknown_tool, .value = shortened(name), .place = place};
}

Sight sight_of_no_request(const Text& reason, const Place& place) {
  return {.seen = Seen::no_request, .value = reason, .place = place};
}

void count(Report& report, std::span<const Sight> sights, const Text& file) {
  for (const Sight& sight : sights) {
    if (sight.tool == Row::none) {
      count(sight.seen == Seen::unknown_tool ? report.unknown_tools : report.no_requests, sight, file);
    } else {
      const std::pair key(sight.seen, sight.parameter);
      count(report.tools[sight.tool].rows.try_emplace(key, report.limit).first->second, sight, file);
    }
  }
}

void count(Row& row, std::span<const Sight> sights, const Text& file) {
  for (const Sight& sight : sights) {
    count(row, sight, file);
  }
}

void count(Report& report, const Observer& observer) {
  for (std::size_t place = 0; place < report.tools.size(); ++place) {
    add_counts(report.tools[place], observer.uses()[place]);
  }
}

}  // namespace tool_binding::report
