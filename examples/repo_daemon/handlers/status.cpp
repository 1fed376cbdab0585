// SPDX-License-Identifier: MIT
#include <algorithm>

#include "handlers/keywords.hpp"
#include "repository.hpp"
#include "text.hpp"
#include "tools.hpp"
#include "utc.hpp"

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

tb::Value status(const tb::KeywordArguments& arguments) {
  const Keywords keywords("status", arguments);
  const auto& repository = keywords.context<const Repository>("repository");
  const Listing listing = repository.files_below("", Glob({}), keywords.deadline(repository.limits()));
  std::size_t bytes = 0;
  for (const SourceFile& file : listing.files) {
    bytes += static_cast<std::size_t>(file.bytes);
  }
  const auto newest =
      std::max_element(listing.files.begin(), listing.files.end(),
                       [](const SourceFile& left, const SourceFile& right) { return left.modified < right.modified; });
  Report report;
  report.add("root: " + shown_name(keywords.context<const std::filesystem::path>("root").native()));
  report.add(counted(listing.files.size(), "file") + ", " + counted(bytes, "byte") + listing.left_out.words());
  if (newest != listing.files.end()) {
    report.add("newest: " + shown_name(newest->path) + ", " + utc(newest->modified));
  }
  return std::move(report).text();
}

}  // namespace

tb::RegistryEntry status_tool() {
  return {.tool = {.name = "status", .description = "Says which directory is served and what it holds."},
          .handler = {.signature = {{{.name = "repository"}, {.name = "call"}, {.name = "root"}}}, .function = status}};
}

}  // namespace repo_daemon
