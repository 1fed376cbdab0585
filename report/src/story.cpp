// SPDX-License-Identifier: MIT
#include "story.hpp"

#include <algorithm>
#include <array>
#include <span>

#include "numbers.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::report {

namespace {

constexpr std::size_t most_tools = 40;
constexpr std::size_t most_rows = 30;
constexpr std::size_t most_values = 5;  ///< of one row

/// A section: what it is called and about, and what is counted in it.
struct SectionRow {
  std::string_view heading;
  std::string_view words;
  std::array<Seen, 3> seen;
  std::size_t count;
};

constexpr std::array<SectionRow, 9> section_rows = {{
    {"Missing parameters", "The call needs them, and did not give them.", {Seen::missing_parameter}, 1},
    {"Unknown parameters", "Names that the tool does not take.", {Seen::unknown_parameter}, 1},
    {"Values of the wrong type",
     "They cannot be read as what is declared.",
     {Seen::wrong_type, Seen::number_too_large},
     2},
    {"Values not in an enumeration", "None of the declared values is meant.", {Seen::unlisted_value}, 1},
    {"Actions",
     "Unknown, unexpected and missing ones.",
     {Seen::unknown_action, Seen::unexpected_action, Seen::missing_action},
     3},
    {"Numbers beyond a bound", "The bound was used instead.", {Seen::above_maximum, Seen::below_minimum}, 2},
    {"Values read as another type", "Repaired without a note.", {Seen::coerced}, 1},
    {"Synonyms",
     "Read as the declared name, or left out beside it.",
     {Seen::synonym_read, Seen::synonym_left_out, Seen::action_synonym_read},
     3},
    {"Blank text", "Read as an argument left out.", {Seen::blank_left_out}, 1},
}};

std::string in_words(std::uint64_t number, std::string_view one, std::string_view many) {
  return with_commas(number) + " " + std::string(number == 1 ? one : many);
}

/// What else there is to say of one value of a row.
std::string note_on(const ToolUse& use, Seen seen, std::size_t parameter, const Row& row, const Count& count) {
  switch (seen) {
    case Seen::unknown_parameter:
    case Seen::unknown_action:
      return count.proposal.empty() ? "" : "nearest: " + shown(count.proposal);
    case Seen::below_minimum:
    case Seen::above_maximum:
      return (seen == Seen::above_maximum ? "maximum " : "minimum ") + json::write(row.bound) + ", sent " +
             json::write(row.smallest) + " to " + json::write(row.largest);
    case Seen::synonym_read:
      return "read as " + shown(use.tool.params()[parameter].name);
    case Seen::synonym_left_out:
      return "left out beside " + shown(use.tool.params()[parameter].name);
    case Seen::unexpected_action:
      return "the tool has no actions";
    case Seen::number_too_large:
      return "a number that no double can hold";
    default:
      return "";
  }
}

std::string where(const ToolUse& use, std::size_t parameter) {
  std::string place = shown(use.tool.name());
  return parameter == Row::none ? place : place + "." + shown(use.tool.params()[parameter].name);
}

/// Whether an empty value stands for none: a call that runs no action, or names none.
bool has_no_value(Seen seen) {
  return seen == Seen::missing_parameter || seen == Seen::missing_action || seen == Seen::number_too_large;
}

/// The most frequent values of a row; what remains is said in one line.
void add_values(StorySection& section, const ToolUse& use, Seen seen, std::size_t parameter, const Row& row) {
  std::uint64_t rest = row.times;
  std::size_t added = 0;
  const auto entries = row.values.most_frequent();
  for (const auto* const entry : entries) {
    if (added++ == most_values) {
      break;
    }
    const auto& [value, count] = *entry;
    section.rows.push_back({where(use, parameter), value.empty() && has_no_value(seen) ? "" : shown(value), count.times,
                            use.outcomes.total(), note_on(use, seen, parameter, row, count), &count.example});
    rest -= std::min(rest, count.times);
  }
  if (entries.size() > most_values || (rest != 0 && !row.values.is_exact())) {
    section.rows.push_back({where(use, parameter), "(others)", rest, use.outcomes.total(), "", nullptr});
  }
  if (!row.values.is_exact()) {
    section.remarks.push_back(
        where(use, parameter) + ": too many different ones to count each: every count may be up to " +
        with_commas(row.values.shortfall()) + " too low, and what is not shown came at most so often.");
  }
}

/// The rows with the most occurrences, those of one parameter together.
void trim(StorySection& section) {
  std::stable_sort(section.rows.begin(), section.rows.end(),
                   [](const StoryRow& left, const StoryRow& right) { return left.times > right.times; });
  if (section.rows.size() > most_rows) {
    section.remarks.push_back("The " + in_words(section.rows.size() - most_rows, "rarer row is", "rarer rows are") +
                              " left out here; --json has them all.");
    section.rows.resize(most_rows);
  }
}

void add_tools_without_name(Story& story, const Report& report) {
  StorySection section = {"Unknown tools", "No tool of that name is declared.", "all requests", {}};
  for (const auto* const entry : report.unknown_tools.values.most_frequent()) {
    section.rows.push_back(
        {shown(entry->first), "", entry->second.times, story.outcomes.total(), "", &entry->second.example});
  }
  if (!report.unknown_tools.values.is_exact()) {
    section.remarks.push_back("Too many different ones to count each: every count may be up to " +
                              with_commas(report.unknown_tools.values.shortfall()) + " too low.");
  }
  trim(section);
  story.sections.push_back(std::move(section));
}

void add_no_requests(Story& story, const Report& report) {
  StorySection section = {"Lines that are not requests", "Counted, and otherwise left alone.", "all lines", {}};
  for (const auto* const entry : report.no_requests.values.most_frequent()) {
    section.rows.push_back({shown(entry->first), "", entry->second.times, story.outcomes.total() + story.no_requests,
                            "", &entry->second.example});
  }
  trim(section);
  story.sections.push_back(std::move(section));
}

void add_section(Story& story, const Report& report, const SectionRow& wanted) {
  StorySection section = {std::string(wanted.heading), std::string(wanted.words), "the tool's requests", {}};
  for (const ToolUse& use : report.tools) {
    for (const auto& [key, row] : use.rows) {
      const auto kinds = std::span(wanted.seen).first(wanted.count);
      if (std::find(kinds.begin(), kinds.end(), key.first) != kinds.end()) {
        add_values(section, use, key.first, key.second, row);
      }
    }
  }
  trim(section);
  story.sections.push_back(std::move(section));
}

/// The tools with the most requests, each followed by its actions.
void add_uses(Story& story, const Report& report) {
  std::vector<const ToolUse*> used;
  for (const ToolUse& use : report.tools) {
    if (use.is_used()) {
      used.push_back(&use);
    }
  }
  std::stable_sort(used.begin(), used.end(), [](const ToolUse* left, const ToolUse* right) {
    return left->outcomes.total() > right->outcomes.total();
  });
  if (used.size() < report.tools.size()) {
    story.unused = "Nobody asked for " + with_commas(report.tools.size() - used.size()) + " of the " +
                   in_words(report.tools.size(), "declared tool.", "declared tools.");
  }
  if (used.size() > most_tools) {
    story.unused += std::string(story.unused.empty() ? "" : " ") + "The " +
                    in_words(used.size() - most_tools, "tool", "tools") +
                    " with the fewest requests are left out here; --json has them all.";
    used.resize(most_tools);
  }
  for (const ToolUse* const use : used) {
    story.uses.push_back({shown(use->tool.name()), use->outcomes});
    for (const auto& [action, outcomes] : use->actions) {
      story.uses.push_back({action.empty() ? "(no action)" : shown(action), outcomes, true});
    }
  }
}

std::string summary_of(const Story& story) {
  const Outcomes& outcomes = story.outcomes;
  if (outcomes.total() + story.no_requests == 0) {
    return "The log is empty: there was no line to read.";
  }
  if (outcomes.total() == 0) {
    return "None of " + in_words(story.no_requests, "line is a request.", "lines is a request.");
  }
  return in_words(outcomes.total(), "request", "requests") + ": " + percent(outcomes.clean, outcomes.total()) +
         " clean, " + percent(outcomes.repaired, outcomes.total()) + " repaired, " +
         percent(outcomes.refused, outcomes.total()) + " refused." +
         (story.no_requests == 0
              ? ""
              : " " + in_words(story.no_requests, "line was not a request.", "lines were not requests."));
}

}  // namespace

std::string shown(const Text& text) {
  std::string quoted = quoted_form(Value(text));
  const std::string_view inner = std::string_view(quoted).substr(1, quoted.size() - 2);
  return inner == text.view() && !text.empty() ? std::string(text) : quoted;
}

Story story_of(const Report& report) {
  Story story;
  story.outcomes = report.outcomes();
  story.no_requests = report.no_requests.times;
  story.summary = summary_of(story);
  story.advice = advice_on(report);
  add_uses(story, report);
  add_tools_without_name(story, report);
  for (const SectionRow& wanted : section_rows) {
    add_section(story, report, wanted);
  }
  add_no_requests(story, report);
  std::erase_if(story.sections, [](const StorySection& section) { return section.rows.empty(); });
  return story;
}

}  // namespace tool_binding::report
