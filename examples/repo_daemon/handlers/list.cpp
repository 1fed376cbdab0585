// SPDX-License-Identifier: MIT
#include <algorithm>

#include "handlers/chosen_files.hpp"
#include "handlers/search_actions.hpp"
#include "text.hpp"

namespace repo_daemon {

namespace {

std::string line_of(const DirectoryEntry& entry) {
  return shown_name(entry.name) +
         (entry.is_directory ? "/" : "  " + counted(static_cast<std::size_t>(entry.bytes), "byte"));
}

}  // namespace

std::string list_directory(const Keywords& keywords, const Repository& repository) {
  const DirectoryListing listing =
      repository.entries_of(keywords.text_or("path", ""), chosen_by(keywords), keywords.deadline(repository.limits()));
  const std::size_t limit = keywords.required_count("limit");
  Report report;
  for (std::size_t place = 0; place < std::min(limit, listing.entries.size()); ++place) {
    report.add(line_of(listing.entries[place]));
  }
  return std::move(report).text(
      counted(listing.entries.size(), "entry", "entries") +
      (listing.entries.size() > limit ? ", the first " + std::to_string(limit) + " shown" : "") +
      listing.left_out.words());
}

}  // namespace repo_daemon
