// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <string>

#include "numbers.hpp"
#include "story.hpp"
#include "text_writer.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/report/comparison.hpp"

namespace tool_binding::report {

namespace {

constexpr std::array all_changes = {Change::now_refused, Change::other_arguments, Change::other_keywords,
                                    Change::now_admitted, Change::other_words};

std::string words_for(Change change) {
  std::string words(word_of(change));
  std::replace(words.begin(), words.end(), '_', ' ');
  return words;
}

std::string_view colour_of(Change change, const TextStyle& style) {
  if (change == Change::now_refused) {
    return style.bad;
  }
  return is_worse(change) ? style.changed : change == Change::now_admitted ? style.good : style.aside;
}

/// What of an answer shows the change.
std::string shown_answer(const Value& answer, Change change) {
  const ArgumentMap& members = answer.mapping();
  if (const Value* const message = members.find("message")) {
    return "refused: " + shown(message->shared_text());
  }
  const bool is_about_keywords = change == Change::other_keywords;
  const bool is_about_words = change == Change::other_words;
  return json::write(*members.find(is_about_keywords ? "keywords" : is_about_words ? "notes" : "arguments"));
}

std::uint64_t unchanged(const Comparison& comparison) {
  std::uint64_t changed = 0;
  for (const Change change : all_changes) {
    changed += comparison.times(change);
  }
  return comparison.requests - changed;
}

std::string summary_of(const Comparison& comparison) {
  if (comparison.requests == 0) {
    return comparison.no_requests.times == 0 ? "The log is empty: there was no line to read."
                                             : "No line of the log is a request.";
  }
  return with_commas(unchanged(comparison)) + " of " + with_commas(comparison.requests) +
         (comparison.requests == 1 ? " request is" : " requests are") + " answered as before.";
}

void add_gone(TextWriter& page, const Comparison& comparison) {
  if (comparison.gone.empty()) {
    return;
  }
  page.add_heading("Tools that are gone");
  for (const GoneTool& tool : comparison.gone) {
    const std::string words = shown(tool.name);
    page.add_words(tool.renamed_to.empty() ? words : words + " seems to be renamed to " + shown(tool.renamed_to), "  ",
                   page.style().bad);
  }
}

void add_changed(TextWriter& page, const Comparison& comparison, const Comparison::Key& key,
                 const Comparison::Changed& changed) {
  const auto& [tool, change, cause] = key;
  const std::string name = cut(shown(tool) + (cause.empty() ? "" : ": " + shown(cause)), 50);
  page.add_share("  " + name, 52, colour_of(change, page.style()), changed.times, comparison.requests, 20);
  page.add_example(changed.example, "      ");
  const std::size_t room = page.style().width > 40 ? page.style().width * 2 : 80;
  page.add_words("before: " + cut(shown_answer(changed.before, change), room), "              ", {}, "      ");
  page.add_words("after:  " + cut(shown_answer(changed.after, change), room), "              ", {}, "      ");
}

}  // namespace

std::string text_page(const Comparison& comparison, const TextStyle& style) {
  TextWriter page(style);
  page.add_line(style.heading, summary_of(comparison));
  for (const Change change : all_changes) {
    if (const std::uint64_t times = comparison.times(change); times != 0) {
      page.add_share("  " + words_for(change), 20, colour_of(change, style), times, comparison.requests, 40);
    }
  }
  if (comparison.no_requests.times != 0) {
    page.add_words(with_commas(comparison.no_requests.times) + " lines were not requests, the first of them:", "  ",
                   style.aside);
    page.add_example(comparison.no_requests.values.most_frequent().front()->second.example, "      ");
  }
  add_gone(page, comparison);
  for (const Change change : all_changes) {
    if (comparison.times(change) == 0) {
      continue;
    }
    page.add_heading(words_for(change) + (is_worse(change) ? " (worse)" : ""));
    for (const auto& [key, changed] : comparison.changes) {
      if (std::get<1>(key) == change) {
        add_changed(page, comparison, key, changed);
      }
    }
  }
  return std::move(page).take();
}

}  // namespace tool_binding::report
