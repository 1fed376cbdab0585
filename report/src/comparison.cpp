// SPDX-License-Identifier: MIT
#include "tool_binding/report/comparison.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>

#include "declared_value.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::report {

namespace {

constexpr std::array<std::string_view, 5> change_words = {"now_refused", "other_arguments", "other_keywords",
                                                          "now_admitted", "other_words"};

ArgumentMap keywords_of(const ToolSpec& tool, const Handler& handler, const ArgumentMap& admitted) {
  ArgumentMap keywords;
  for (const auto& [name, argument] : handler_kwargs(handler, bind_arguments(tool, admitted), {})) {
    keywords.append(name, argument.value());
  }
  return keywords;
}

Answer answer_of(const Registry& registry, const Text& name, const ArgumentMap& arguments) {
  try {
    const ToolSpec& tool = registry.tools[name];
    Admission admission = admit(tool, arguments);
    if (!admission.is_admitted()) {
      const Text refusal = admission.refusal();
      return {.error = "ArgumentError", .message = refusal, .findings = std::move(admission).findings()};
    }
    return {.is_admitted = true,
            .arguments = admission.arguments(),
            .keywords = keywords_of(tool, *registry.handlers.find(name), admission.arguments()),
            .notes = admission.notes()};
  } catch (const UnknownToolError& error) {
    return {.error = "KeyError", .message = error.message()};
  } catch (const std::overflow_error& error) {
    return {.error = "OverflowError", .message = std::string_view(error.what())};
  }
}

/// Equal as they are written: a NaN is equal to one.
bool are_alike(const ArgumentMap& left, const ArgumentMap& right) {
  return left == right || json::write(Value(left)) == json::write(Value(right));
}

std::optional<Change> change_of(const Answer& before, const Answer& after) {
  if (before.is_admitted != after.is_admitted) {
    return before.is_admitted ? Change::now_refused : Change::now_admitted;
  }
  if (!are_alike(before.arguments, after.arguments)) {
    return Change::other_arguments;
  }
  if (!are_alike(before.keywords, after.keywords)) {
    return Change::other_keywords;
  }
  const bool has_same_words = before.notes == after.notes && before.message == after.message;
  return has_same_words ? std::nullopt : std::optional(Change::other_words);
}

/// The first name under which two maps differ.
Text first_difference(const ArgumentMap& before, const ArgumentMap& after) {
  for (const auto& [name, value] : before) {
    const Value* const other = after.find(name);
    if (other == nullptr || json::write(value) != json::write(*other)) {
      return name;
    }
  }
  for (const auto& [name, value] : after) {
    if (!before.contains(name)) {
      return name;
    }
  }
  return {};
}

/// The kind of the first problem, and its parameter, or the name that one of the registries takes: callers' own names
/// would be without number.
Text first_problem(const Answer& refused, const ToolSpec* other) {
  const auto problem = std::find_if(refused.findings.begin(), refused.findings.end(),
                                    [](const Finding& finding) { return is_problem(finding.kind); });
  if (problem == refused.findings.end()) {
    return refused.error;
  }
  const std::string kind(word_of(problem->kind));
  if (problem->parameter != nullptr) {
    return kind + " " + std::string(problem->parameter->name);
  }
  const bool is_declared = other != nullptr && other->param(problem->argument) != nullptr;
  return is_declared ? kind + " " + std::string(problem->argument) : kind;
}

Text cause_of(Change change, const Answer& before, const Answer& after, const ToolSpec* old_tool,
              const ToolSpec* new_tool) {
  switch (change) {
    case Change::now_refused:
      return first_problem(after, old_tool);
    case Change::now_admitted:
      return first_problem(before, new_tool);
    case Change::other_arguments:
      return first_difference(before.arguments, after.arguments);
    case Change::other_keywords:
      return first_difference(before.keywords, after.keywords);
    case Change::other_words:
      break;
  }
  return {};
}

/// Whether two tools take the same arguments, whatever their names.
bool take_alike(const ToolSpec& left, const ToolSpec& right) {
  const auto are_same = [](std::span<const Text> some, std::span<const Text> others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end());
  };
  return are_same(left.param_names(), right.param_names()) && are_same(left.action_names(), right.action_names());
}

/// The one new tool that takes what a tool took that is gone.
Text new_name_of(const ToolSpec& tool, const Registry& before, const Registry& after) {
  Text name;
  if (tool.params().empty()) {
    return name;
  }
  for (const ToolSpec& candidate : after.tools.all()) {
    if (before.tools.find(candidate.name()) == nullptr && take_alike(tool, candidate)) {
      if (!name.empty()) {
        return {};
      }
      name = candidate.name();
    }
  }
  return name;
}

Value changed_value(const Comparison::Key& key, const Comparison::Changed& changed) {
  return ArgumentMap{{"tool", std::get<0>(key)},
                     {"change", word_of(std::get<1>(key))},
                     {"cause", std::get<2>(key)},
                     {"times", changed.times},
                     {"example", ArgumentMap{{"file", changed.example.file},
                                             {"line", changed.example.line},
                                             {"request", changed.example.request},
                                             {"before", changed.before},
                                             {"after", changed.after}}}};
}

Value gone_value(const GoneTool& gone) {
  return ArgumentMap{{"tool", gone.name}, {"renamed_to", gone.renamed_to.empty() ? Value() : Value(gone.renamed_to)}};
}

}  // namespace

std::string_view word_of(Change change) noexcept { return change_words[static_cast<std::size_t>(change)]; }

bool is_worse(Change change) noexcept { return change <= Change::other_keywords; }

Value answer_value(const Answer& answer) {
  if (!answer.is_admitted) {
    return ArgumentMap{{"error", answer.error}, {"message", answer.message}};
  }
  return ArgumentMap{{"arguments", answer.arguments},
                     {"notes", std::vector<Value>(answer.notes.begin(), answer.notes.end())},
                     {"keywords", answer.keywords}};
}

std::optional<Difference> compare(const Registry& before, const Registry& after, const Text& tool,
                                  const ArgumentMap& arguments) {
  Answer old_answer = answer_of(before, tool, arguments);
  Answer new_answer = answer_of(after, tool, arguments);
  const std::optional<Change> change = change_of(old_answer, new_answer);
  if (!change) {
    return {};
  }
  const Text cause = cause_of(*change, old_answer, new_answer, before.tools.find(tool), after.tools.find(tool));
  return Difference{*change, cause, std::move(old_answer), std::move(new_answer)};
}

std::vector<GoneTool> gone_tools(const Registry& before, const Registry& after) {
  std::vector<GoneTool> gone;
  for (const ToolSpec& tool : before.tools.all()) {
    if (after.tools.find(tool.name()) == nullptr) {
      gone.push_back({tool.name(), new_name_of(tool, before, after)});
    }
  }
  return gone;
}

std::uint64_t Comparison::times(Change change) const noexcept {
  std::uint64_t times = 0;
  for (const auto& [key, changed] : changes) {
    times += std::get<1>(key) == change ? changed.times : 0;
  }
  return times;
}

Value comparison_value(const Comparison& comparison) {
  ArgumentMap members = {{"format", "tool-binding comparison 1"}, {"requests", comparison.requests}};
  for (std::size_t place = 0; place < change_words.size(); ++place) {
    members.append(change_words[place], comparison.times(static_cast<Change>(place)));
  }
  members.append("no_requests", comparison.no_requests.times);
  std::vector<Value> gone;
  for (const GoneTool& tool : comparison.gone) {
    gone.push_back(gone_value(tool));
  }
  members.append("gone_tools", std::move(gone));
  std::vector<Value> changes;
  for (const auto& [key, changed] : comparison.changes) {
    changes.push_back(changed_value(key, changed));
  }
  members.append("changes", std::move(changes));
  return members;
}

}  // namespace tool_binding::report
