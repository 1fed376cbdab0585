// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>

#include "html_style.hpp"
#include "numbers.hpp"
#include "story.hpp"
#include "tool_binding/report/pages.hpp"

namespace tool_binding::report {

namespace {

/// A text as the content of an element or of an attribute between double quotes.
std::string escaped(std::string_view text) {
  std::string out;
  for (const char byte : text) {
    switch (byte) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#39;";
        break;
      default:
        out += byte;
    }
  }
  return out;
}

/// A number of a drawing, with as many places as can be seen.
std::string places(double number) {
  const auto hundredths = static_cast<std::uint64_t>(number * 100);
  const std::string rest = std::to_string(hundredths % 100);
  return std::to_string(hundredths / 100) + "." + (rest.size() == 1 ? "0" : "") + rest;
}

/// The roles are those of the elements: a browser forgets them where the page is narrow and rows are no longer tabular.
constexpr std::string_view begin_of_row = R"(<tr role="row"><th role="rowheader" scope="row")";

/// One part of a bar: its share of the whole, and the class that gives its colour.
struct Part {
  double share;
  std::string_view colour;
};

class HtmlPage {
 public:
  void add(const Story& story) {
    html_ += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
    html_ += "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
    html_ += "<title>What callers send</title>\n<style>\n";
    html_.append(html_style).append("</style>\n</head>\n<body>\n<main>\n<h1>What callers send</h1>\n");
    add_element("p", "summary", story.summary);
    if (story.outcomes.total() != 0) {
      add_outcomes(story.outcomes);
      add_advice(story);
      add_uses(story);
    }
    for (const StorySection& section : story.sections) {
      add_section(section);
    }
    html_ += "</main>\n</body>\n</html>\n";
  }

  [[nodiscard]] std::string take() && { return std::move(html_); }

 private:
  void add_element(std::string_view name, std::string_view style, std::string_view content) {
    html_.append("<").append(name);
    if (!style.empty()) {
      html_.append(" class=\"").append(style).append("\"");
    }
    html_.append(">").append(escaped(content)).append("</").append(name).append(">\n");
  }

  /// A bar that says nothing which does not stand beside it as text: screen readers pass it over.
  void add_bar(std::initializer_list<Part> parts) {
    html_ += R"(<svg class="bar" viewBox="0 0 100 10" preserveAspectRatio="none" aria-hidden="true" focusable="false">)"
             R"(<rect class="whole" width="100" height="10"/>)";
    double begin = 0;
    for (const Part& part : parts) {
      const double width = part.share > 0 ? std::max(part.share * 100, 0.5) : 0;
      html_.append("<rect class=\"").append(part.colour).append("\" x=\"").append(places(begin));
      html_.append("\" width=\"").append(places(std::min(width, 100 - begin))).append("\" height=\"10\"/>");
      begin = std::min(begin + width, 100.0);
    }
    html_ += "</svg>";
  }

  void add_bar_of(const Outcomes& outcomes) {
    const std::uint64_t of = outcomes.total();
    add_bar({{share_of(outcomes.clean, of), "clean"},
             {share_of(outcomes.repaired, of), "repaired"},
             {share_of(outcomes.refused, of), "refused"}});
  }

  void add_outcomes(const Outcomes& outcomes) {
    add_bar_of(outcomes);
    html_ += "\n<dl class=\"outcomes\">\n";
    add_outcome("clean", outcomes.clean, outcomes.total());
    add_outcome("repaired", outcomes.repaired, outcomes.total());
    add_outcome("refused", outcomes.refused, outcomes.total());
    html_ += "</dl>\n";
  }

  void add_outcome(std::string_view name, std::uint64_t times, std::uint64_t of) {
    html_.append("<div><dt><span class=\"key ").append(name).append("\"></span>").append(name).append("</dt><dd>");
    html_.append(with_commas(times)).append(" <small>").append(percent(times, of)).append("</small></dd></div>\n");
  }

  void begin_table(std::string_view caption, std::initializer_list<std::string_view> columns) {
    html_ += "<table role=\"table\">\n";
    add_element("caption", {}, caption);
    html_ += R"(<thead role="rowgroup"><tr role="row">)";
    for (const std::string_view column : columns) {
      const bool is_of_text = column == "where" || column == "what" || column == *columns.begin();
      html_.append(R"(<th role="columnheader" scope="col")").append(is_of_text ? ">" : " class=\"number\">");
      html_.append(column).append("</th>");
    }
    html_ += "</tr></thead>\n<tbody role=\"rowgroup\">\n";
  }

  void end_table() { html_ += "</tbody>\n</table>\n"; }

  void add_uses(const Story& story) {
    html_ += "<section>\n<h2>By tool and action</h2>\n";
    begin_table("How the requests to each tool ended",
                {"tool, action", "requests", "clean", "repaired", "refused", ""});
    for (const StoryUse& use : story.uses) {
      const Outcomes& outcomes = use.outcomes;
      html_.append(begin_of_row).append(use.is_action ? " class=\"action\">" : ">");
      html_.append(escaped(use.name)).append("</th>\n");
      add_number("requests", with_commas(outcomes.total()));
      add_number("clean", percent(outcomes.clean, outcomes.total()));
      add_number("repaired", percent(outcomes.repaired, outcomes.total()));
      add_number("refused", percent(outcomes.refused, outcomes.total()));
      html_ += R"(<td role="cell" class="drawn">)";
      add_bar_of(outcomes);
      html_ += "</td></tr>\n";
    }
    end_table();
    if (!story.unused.empty()) {
      add_element("p", "aside", story.unused);
    }
    html_ += "</section>\n";
  }

  /// A number, with the name of its column for where the columns do not stand beside each other.
  void add_number(std::string_view column, std::string_view number) {
    html_.append(R"(<td role="cell" class="number" data-column=")")
        .append(column)
        .append("\">")
        .append(escaped(number));
    html_ += "</td>\n";
  }

  void add_advice(const Story& story) {
    html_ += "<section>\n<h2>What to do about it</h2>\n";
    if (story.advice.empty()) {
      add_element("p", {}, "Nothing that the counts would support: every rule asks for more than was seen.");
    } else {
      html_ += "<ol class=\"advice\">\n";
      for (const Advice& advice : story.advice) {
        add(advice);
      }
      html_ += "</ol>\n";
    }
    html_ += "</section>\n";
  }

  void add(const Advice& advice) {
    html_ += "<li>\n<p><strong>";
    html_.append(escaped(shown(advice.tool))).append("</strong>: ").append(escaped(advice.words)).append("</p>\n");
    add_element("p", {}, advice.evidence);
    if (!advice.lines.empty()) {
      html_.append("<pre tabindex=\"0\"><code>").append(escaped(advice.lines)).append("</code></pre>\n");
    }
    add_element("p", "aside", "Rule: " + std::string(evidence_for(advice.rule).words) + ".");
    add_example(advice.example);
    html_ += "</li>\n";
  }

  void add_example(const Example& example) {
    if (example.line != 0) {
      html_.append("<p class=\"example\">").append(escaped(shown(example.file))).append(":");
      html_.append(std::to_string(example.line)).append(": <code>").append(escaped(shown(example.request)));
      html_ += "</code></p>\n";
    }
  }

  void add_section(const StorySection& section) {
    html_ += "<section>\n";
    add_element("h2", {}, section.heading);
    begin_table(section.words + " Shares are of " + section.of + ".", {"where", "what", "times", "share", ""});
    for (const StoryRow& row : section.rows) {
      add(row);
    }
    end_table();
    for (const std::string& remark : section.remarks) {
      add_element("p", "aside", remark);
    }
    html_ += "</section>\n";
  }

  void add(const StoryRow& row) {
    html_.append(begin_of_row).append(">").append(escaped(row.where)).append("</th>\n");
    html_ += R"(<td role="cell" class="what">)";
    html_.append(row.what.empty() ? "" : "<b>" + escaped(row.what) + "</b>");
    if (!row.note.empty()) {
      html_.append(" <span class=\"note\">").append(escaped(row.note)).append("</span>");
    }
    if (row.example != nullptr) {
      add_example(*row.example);
    }
    html_ += "</td>\n";
    add_number("times", with_commas(row.times));
    add_number("share", percent(row.times, row.of));
    html_ += R"(<td role="cell" class="drawn">)";
    add_bar({{share_of(row.times, row.of), "count"}});
    html_ += "</td></tr>\n";
  }

  std::string html_;
};

}  // namespace

std::string html_page(const Report& report) {
  HtmlPage page;
  page.add(story_of(report));
  return std::move(page).take();
}

}  // namespace tool_binding::report
