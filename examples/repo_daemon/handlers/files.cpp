// SPDX-License-Identifier: MIT
#include <algorithm>

#include "handlers/chosen_files.hpp"
#include "handlers/keywords.hpp"
#include "text.hpp"
#include "tools.hpp"
#include "utc.hpp"

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

tb::Value files(const tb::KeywordArguments& arguments) {
  const Keywords keywords("files", arguments);
  const auto& repository = keywords.context<const Repository>("repository");
  const Deadline deadline = keywords.deadline(repository.limits());
  Listing listing = repository.files_below(keywords.text_or("path", ""), chosen_by(keywords), deadline);
  std::stable_sort(listing.files.begin(), listing.files.end(),
                   [](const SourceFile& left, const SourceFile& right) { return left.modified > right.modified; });
  const std::size_t count = std::min(keywords.required_count("limit"), listing.files.size());
  Report report;
  for (std::size_t place = 0; place < count; ++place) {
    const SourceFile& file = listing.files[place];
    report.add(utc(file.modified) + "  " + shown_name(file.path) + "  " +
               counted(static_cast<std::size_t>(file.bytes), "byte"));
  }
  return std::move(report).text(
      counted(listing.files.size(), "file") +
      (listing.files.size() > count ? ", the newest " + std::to_string(count) + " shown" : "") +
      listing.left_out.words());
}

}  // namespace

tb::RegistryEntry files_tool() {
  return {
      .tool = {.name = "files",
               .description = "Lists files by pattern, the newest first.",
               .params = {{.name = "patterns",
                           .type = "array",
                           .synonyms = {"pattern", "glob", "name"},
                           .description = "As *.cpp or src/**/*.{hpp,cpp}; a file is listed when one matches.",
                           .items_type = "string",
                           .default_ = std::vector<tb::Value>{"*"}},
                          {.name = "path",
                           .type = "string",
                           .synonyms = {"directory", "dir"},
                           .description = "Where to look, from the root on."},
                          {.name = "limit",
                           .type = "integer",
                           .synonyms = {"max_results", "top_k", "count"},
                           .description = "The most files to show.",
                           .minimum = 1,
                           .maximum = 1000,
                           .default_ = 50}}},
      .handler = {
          .signature =
              {{{.name = "patterns"}, {.name = "path"}, {.name = "limit"}, {.name = "repository"}, {.name = "call"}}},
          .function = files}};
}

}  // namespace repo_daemon
