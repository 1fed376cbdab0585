// SPDX-License-Identifier: MIT
#include <algorithm>
#include <optional>

#include "handlers/keywords.hpp"
#include "repository.hpp"
#include "text.hpp"
#include "tool_binding/errors.hpp"
#include "tools.hpp"

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

constexpr int most_lines = 400;

void require_line(std::size_t first, std::size_t count, const std::string& path) {
  if (first > std::max<std::size_t>(count, 1)) {
    throw tb::ArgumentError(tb::quoted_form(shown(path)) + " ends with line " + std::to_string(count));
  }
}

tb::Value read(const tb::KeywordArguments& arguments) {
  const Keywords keywords("read", arguments);
  const auto& repository = keywords.context<const Repository>("repository");
  const std::string path = repository.path_of(keywords.required_text("path"));
  const std::string text = repository.text_of(path, keywords.deadline(repository.limits()));
  const std::size_t count = line_count(text);
  const std::size_t first = keywords.required_count("first_line");
  require_line(first, count, path);
  const std::size_t last =
      std::min({keywords.count("last_line").value_or(count), count, first + keywords.required_count("limit") - 1});
  Report report;
  report.add(shown_name(path) + ": " +
             (last < first ? "no line" : "lines " + std::to_string(first) + " to " + std::to_string(last)) + " of " +
             std::to_string(count));
  Lines lines(text);
  for (std::size_t number = 1; number <= last; ++number) {
    const std::optional<std::string_view> line = lines.next();
    if (number >= first) {
      report.add(std::to_string(number) + ": " + shown_line(*line));
    }
  }
  return std::move(report).text();
}

}  // namespace

tb::RegistryEntry read_tool() {
  return {.tool = {.name = "read",
                   .description = "Shows the lines of a file with their numbers, at most 400 at a time.",
                   .params = {{.name = "path",
                               .type = "string",
                               .synonyms = {"file", "file_path", "filename"},
                               .description = "The file, from the root on.",
                               .required = true},
                              {.name = "first_line",
                               .type = "integer",
                               .synonyms = {"start", "start_line", "from", "offset"},
                               .description = "The first line to show, counted from 1.",
                               .minimum = 1,
                               .default_ = 1},
                              {.name = "last_line",
                               .type = "integer",
                               .synonyms = {"end", "end_line", "to"},
                               .description = "The last line to show; none stands for the file's last.",
                               .minimum = 1},
                              {.name = "limit",
                               .type = "integer",
                               .synonyms = {"max_lines", "line_count", "count"},
                               .description = "The most lines to show.",
                               .minimum = 1,
                               .maximum = most_lines,
                               .default_ = most_lines}}},
          .handler = {.signature = {{{.name = "path"},
                                     {.name = "first_line"},
                                     {.name = "last_line"},
                                     {.name = "limit"},
                                     {.name = "repository"},
                                     {.name = "call"}}},
                      .function = read}};
}

}  // namespace repo_daemon
