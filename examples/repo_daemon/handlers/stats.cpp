// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>

#include "handlers/chosen_files.hpp"
#include "handlers/search_actions.hpp"
#include "text.hpp"

namespace repo_daemon {

namespace {

struct Counts {
  std::string kind;
  std::size_t files = 0;
  std::size_t lines = 0;
  std::size_t bytes = 0;

  void add(const Counts& more) {
    files += more.files;
    lines += more.lines;
    bytes += more.bytes;
  }

  [[nodiscard]] std::string line() const {
    return shown_name(kind) + ": " + counted(files, "file") + ", " + counted(lines, "line") + ", " +
           counted(bytes, "byte");
  }
};

/// The ending of a file's name, the whole name where it has none.
std::string kind_of(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  const std::size_t point = name.rfind('.');
  return point == std::string::npos ? name : name.substr(point);
}

/// The kinds with the most lines first.
std::vector<Counts> sorted(const std::map<std::string, Counts>& by_kind) {
  std::vector<Counts> counts;
  for (const auto& [kind, of_kind] : by_kind) {
    counts.push_back(of_kind);
  }
  std::stable_sort(counts.begin(), counts.end(),
                   [](const Counts& left, const Counts& right) { return left.lines > right.lines; });
  return counts;
}

}  // namespace

std::string count_lines(const Keywords& keywords, const Repository& repository) {
  std::map<std::string, Counts> by_kind;
  Counts total = {.kind = "in all"};
  const Deadline deadline = keywords.deadline(repository.limits());
  const Listing listing = repository.files_below(keywords.text_or("path", ""), chosen_by(keywords), deadline);
  const auto count = [&](const SourceFile& file, std::string_view text) {
    const Counts counts = {kind_of(file.path), 1, line_count(text), text.size()};
    by_kind.try_emplace(counts.kind, Counts{.kind = counts.kind}).first->second.add(counts);
    total.add(counts);
  };
  const Reading reading = read_each(repository, listing.files, deadline, count);
  Report report;
  const std::vector<Counts> kinds = sorted(by_kind);
  for (std::size_t place = 0; place < std::min(keywords.required_count("limit"), kinds.size()); ++place) {
    report.add(kinds[place].line());
  }
  return std::move(report).text(total.line() + listing.left_out.words() + reading.remarks());
}

}  // namespace repo_daemon
