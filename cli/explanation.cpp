// SPDX-License-Identifier: MIT
#include "explanation.hpp"

#include <algorithm>
#include <vector>

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
  explicit Page(const report::TextStyle& style) : style_(style) {}

  void add_title(const Text& tool, std::string_view colour, std::string_view verdict) {
    text_.append(style_.heading).append(tool).append(style_.off).append(": ");
    text_.append(colour).append(verdict).append(style_.off).append("\n");
  }

  void add_heading(std::string_view words) {
    text_.append("\n").append(style_.heading).append(words).append(style_.off).append("\n");
  }

  void add_line(std::string_view colour, std::string_view words) {
    text_.append("  ").append(colour).append(words).append(colour.empty() ? "" : style_.off).append("\n");
  }

  /// Reasons are aligned, unless a value is too wide for that.
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
        line.append("  ").append(style_.aside).append(row.reason).append(style_.off);
      }
      add_line("", line);
    }
  }

  [[nodiscard]] std::string take() && { return std::move(text_); }

 private:
  static std::string padded(std::string text, std::size_t width) {
    return text.append(width - std::min(width, text.size()), ' ');
  }

  const report::TextStyle& style_;
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

/// The action that the request did not name, null where it named one or runs none.
const Value* default_action_of(const Request& request) {
  const Value* const action = request.admission.arguments().find(ACTION_PARAM);
  const Value* const sent = request.arguments.find(ACTION_PARAM);
  const bool is_named = action != nullptr && sent != nullptr && treatment_of(request, ACTION_PARAM, *sent).value;
  return is_named ? nullptr : action;
}

/// What became of the arguments, but for those that are problems.
void add_arguments(Page& page, const Request& request) {
  std::vector<Row> rows;
  for (const auto& [name, value] : request.arguments) {
    if (is_refused(request.admission, name)) {
      continue;
    }
    const Treatment treatment = treatment_of(request, name, value);
    rows.push_back({treatment.name, treatment.value ? json::write(*treatment.value) : "left out", treatment.reason});
  }
  if (const Value* const action = default_action_of(request)) {
    rows.push_back({std::string(ACTION_PARAM), json::write(*action), "the default action"});
  }
  if (request.admission.is_admitted() || !rows.empty()) {
    page.add_heading("arguments");
    page.add_rows(rows);
  }
}

void add_notes(Page& page, const Admission& admission) {
  const std::vector<std::string> notes = admission.notes();
  if (!notes.empty()) {
    page.add_heading("notes");
  }
  for (const std::string& note : notes) {
    page.add_line("", note);
  }
}

void add_keywords(Page& page, const Request& request, const Handler& handler, const KeywordArguments& context) {
  page.add_heading("keywords");
  const ArgumentMap& admitted = request.admission.arguments();
  const ArgumentMap bound = bind_arguments(request.tool, admitted);
  std::vector<Row> rows;
  for (const auto& [name, keyword] : handler_kwargs(handler, bound, context)) {
    if (keyword.is_context()) {
      rows.push_back({std::string(name), json::write(keyword.item<const Value>()), "context"});
    } else {
      rows.push_back({std::string(name), json::write(keyword.value()),
                      admitted.contains(name) ? "" : why_default(request.tool, name, bound)});
    }
  }
  page.add_rows(rows);
  if (rows.empty()) {
    page.add_line("", "none");
  }
}

void add_problems(Page& page, const Admission& admission, std::string_view colour) {
  page.add_heading("problems");
  for (const std::string& problem : admission.problems()) {
    page.add_line(colour, problem);
  }
}

}  // namespace

std::string explanation_of(const Request& request, const Handler& handler, const KeywordArguments& context,
                           const report::TextStyle& style) {
  Page page(style);
  const bool is_admitted = request.admission.is_admitted();
  page.add_title(request.tool.name(), is_admitted ? style.good : style.bad, is_admitted ? "admitted" : "refused");
  add_sent(page, request.arguments);
  if (!is_admitted) {
    add_problems(page, request.admission, style.bad);
  }
  add_arguments(page, request);
  add_notes(page, request.admission);
  if (is_admitted) {
    add_keywords(page, request, handler, context);
  }
  return std::move(page).take();
}

std::string explanation_of_failure(const ToolSpec& tool, const ArgumentMap& arguments, std::string_view failure,
                                   const report::TextStyle& style) {
  Page page(style);
  page.add_title(tool.name(), style.bad, "refused");
  add_sent(page, arguments);
  page.add_heading("problems");
  page.add_line(style.bad, failure);
  return std::move(page).take();
}

}  // namespace tool_binding::cli
