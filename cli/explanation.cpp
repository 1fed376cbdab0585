// SPDX-License-Identifier: MIT
#include "explanation.hpp"

#include <algorithm>
#include <vector>

#include "problems.hpp"
#include "reasons.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

namespace {

/// A name, a value as JSON, and why it is so.
struct Row {
  std::string name;
  std::string value;
  std::string reason = {};
};

/// Sections, each a heading and its lines.
class Page {
 public:
  explicit Page(const Colours& colours) : colours_(colours) {}

  void add_title(const Text& tool, std::string_view colour, std::string_view verdict) {
    text_.append(colours_.heading).append(tool).append(colours_.off).append(": ");
    text_.append(colour).append(verdict).append(colours_.off).append("\n");
  }

  void add_heading(std::string_view words) {
    text_.append("\n").append(colours_.heading).append(words).append(colours_.off).append("\n");
  }

  void add_line(std::string_view colour, std::string_view words) {
    text_.append("  ").append(colour).append(words).append(colour.empty() ? "" : colours_.off).append("\n");
  }

  /// Reasons stand below each other, unless a value is too wide for that.
  void add_rows(const std::vector<Row>& rows) {
    constexpr std::size_t widest = 40;
    std::size_t name_width = 0;
    std::size_t value_width = 0;
    for (const Row& row : rows) {
      name_width = std::max(name_width, row.name.size());
      value_width = std::max(value_width, row.value.size() > widest ? 0 : row.value.size());
    }
    for (const Row& row : rows) {
      std::string line = padded(row.name, name_width) + "  ";
      line += row.reason.empty() ? row.value : padded(row.value, value_width);
      if (!row.reason.empty()) {
        line.append("  ").append(colours_.aside).append(row.reason).append(colours_.off);
      }
      add_line("", line);
    }
  }

  [[nodiscard]] std::string take() && { return std::move(text_); }

 private:
  static std::string padded(std::string text, std::size_t width) {
    return text.append(width - std::min(width, text.size()), ' ');
  }

  const Colours& colours_;
  std::string text_;
};

void add_sent(Page& page, const ArgumentMap& arguments) {
  page.add_heading("sent");
  std::vector<Row> rows;
  for (const auto& [name, value] : arguments) {
    rows.push_back({std::string(name), json::write(value)});
  }
  page.add_rows(rows);
  if (rows.empty()) {
    page.add_line("", "nothing");
  }
}

void add_arguments(Page& page, const Sent& sent, const NormalizedArguments& admitted) {
  page.add_heading("arguments");
  std::vector<Row> rows;
  for (const auto& [name, value] : sent.arguments) {
    const Became became = what_became(sent.tool, name, value, admitted);
    rows.push_back({became.name, became.value ? json::write(*became.value) : "left out", became.reason});
  }
  const Value* const action = admitted.arguments().find(ACTION_PARAM);
  if (action != nullptr && !is_given(sent.arguments, ACTION_PARAM)) {
    rows.push_back({std::string(ACTION_PARAM), json::write(*action), "the default action"});
  }
  page.add_rows(rows);
}

void add_notes(Page& page, std::span<const std::string> notes) {
  if (!notes.empty()) {
    page.add_heading("notes");
  }
  for (const std::string& note : notes) {
    page.add_line("", note);
  }
}

void add_keywords(Page& page, const Sent& sent, const NormalizedArguments& admitted, const Handler& handler) {
  page.add_heading("keywords");
  const ArgumentMap bound = bind_arguments(sent.tool, admitted.arguments());
  std::vector<Row> rows;
  for (const auto& [name, keyword] : handler_kwargs(handler, bound, {})) {
    const bool is_sent = admitted.arguments().contains(name);
    rows.push_back(
        {std::string(name), json::write(keyword.value()), is_sent ? "" : why_default(sent.tool, name, bound)});
  }
  page.add_rows(rows);
  if (rows.empty()) {
    page.add_line("", "none");
  }
}

}  // namespace

std::string explain_admission(const Sent& sent, const NormalizedArguments& admitted, const Handler& handler,
                              const Colours& colours) {
  Page page(colours);
  page.add_title(sent.tool.name(), colours.good, "admitted");
  add_sent(page, sent.arguments);
  add_arguments(page, sent, admitted);
  add_notes(page, admitted.notes());
  add_keywords(page, sent, admitted, handler);
  return std::move(page).take();
}

std::string explain_refusal(const Sent& sent, std::string_view refusal, const Colours& colours) {
  Page page(colours);
  page.add_title(sent.tool.name(), colours.bad, "refused");
  add_sent(page, sent.arguments);
  page.add_heading("problems");
  for (const std::string& problem : problems_of(sent.tool, sent.arguments, refusal)) {
    page.add_line(colours.bad, problem);
  }
  return std::move(page).take();
}

}  // namespace tool_binding::cli
