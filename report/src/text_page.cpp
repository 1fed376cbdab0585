// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include "numbers.hpp"
#include "story.hpp"
#include "text_writer.hpp"
#include "tool_binding/report/pages.hpp"

namespace tool_binding::report {

namespace {

class TextPage {
 public:
  explicit TextPage(const TextStyle& style) : page_(style), style_(style) {}

  void add(const Story& story) {
    page_.add_line(style_.heading, story.summary);
    if (story.outcomes.total() != 0) {
      add_outcomes(story.outcomes);
    }
    add_uses(story);
    add_advice(story);
    for (const StorySection& section : story.sections) {
      add_section(section);
    }
  }

  [[nodiscard]] std::string take() && { return std::move(page_).take(); }

 private:
  static constexpr std::size_t bar_width = 20;

  void add_outcomes(const Outcomes& outcomes) {
    add_outcome("clean", style_.good, outcomes.clean, outcomes.total());
    add_outcome("repaired", style_.changed, outcomes.repaired, outcomes.total());
    add_outcome("refused", style_.bad, outcomes.refused, outcomes.total());
  }

  void add_outcome(std::string_view name, std::string_view colour, std::uint64_t times, std::uint64_t of) {
    page_.add_share("  " + std::string(name), 15, colour, times, of, 2 * bar_width);
  }

  void add_uses(const Story& story) {
    if (story.uses.empty()) {
      return;
    }
    std::size_t width = 0;
    for (const StoryUse& use : story.uses) {
      width = std::max(width, width_of(use.name) + (use.is_action ? 2 : 0));
    }
    width = std::min(width, style_.width > 70 ? style_.width - 54 : 16);
    page_.add_heading("By tool and action");
    page_.add_line(style_.aside, "  " + padded("", width) + "     requests     clean  repaired   refused");
    for (const StoryUse& use : story.uses) {
      const Outcomes& outcomes = use.outcomes;
      std::string line = "  " + padded(cut((use.is_action ? "  " : "") + use.name, width), width);
      line.append(padded(with_commas(outcomes.total()), 13, true));
      for (const std::uint64_t part : {outcomes.clean, outcomes.repaired, outcomes.refused}) {
        line.append(padded(part == 0 ? "·" : percent(part, outcomes.total()), 10, true));
      }
      page_.add_line({}, line);
    }
    if (!story.unused.empty()) {
      page_.add_words(story.unused, "  ", style_.aside);
    }
  }

  void add_advice(const Story& story) {
    if (story.outcomes.total() == 0) {
      return;
    }
    page_.add_heading("What to do about it");
    if (story.advice.empty()) {
      page_.add_words("Nothing that the counts would support: every rule asks for more than was seen.", "  ");
    }
    std::size_t number = 0;
    for (const Advice& advice : story.advice) {
      const std::string mark = padded(std::to_string(++number) + ". ", 5, true);
      page_.add_words(shown(advice.tool) + ": " + advice.words, "     ", {}, mark);
      page_.add_words(advice.evidence, "     ");
      if (!advice.lines.empty()) {
        page_.add_line(style_.good, "     " + advice.lines);
      }
      page_.add_words("Rule: " + std::string(evidence_for(advice.rule).words) + ".", "     ", style_.aside);
      page_.add_example(advice.example, "     ");
    }
  }

  void add_section(const StorySection& section) {
    page_.add_heading(section.heading);
    page_.add_words(section.words + " Shares are of " + section.of + ".", "  ", style_.aside);
    std::size_t where = 0;
    std::size_t what = 0;
    for (const StoryRow& row : section.rows) {
      where = std::max(where, width_of(row.where));
      what = std::max(what, width_of(row.what));
    }
    const std::size_t room = std::max<std::size_t>(style_.width, 60) - 40;
    where = std::min(where, room - std::min(what, room / 2));
    what = std::min(what, room - where);
    for (const StoryRow& row : section.rows) {
      add_row(row, where, what);
    }
    for (const std::string& remark : section.remarks) {
      page_.add_words(remark, "  ", style_.aside);
    }
  }

  void add_row(const StoryRow& row, std::size_t where, std::size_t what) {
    std::string line = "  " + padded(cut(row.where, where), where) + "  " + padded(cut(row.what, what), what);
    line.append(padded(with_commas(row.times), 12, true)).append(padded(percent(row.times, row.of), 9, true));
    line.append("  ").append(bar(share_of(row.times, row.of), bar_width / 2));
    page_.add_line({}, line);
    if (!row.note.empty()) {
      page_.add_words(row.note, "      ");
    }
    if (row.example != nullptr) {
      page_.add_example(*row.example, "      ");
    }
  }

  TextWriter page_;
  const TextStyle& style_;
};

}  // namespace

std::string text_page(const Report& report, const TextStyle& style) {
  TextPage page(style);
  page.add(story_of(report));
  return std::move(page).take();
}

}  // namespace tool_binding::report
