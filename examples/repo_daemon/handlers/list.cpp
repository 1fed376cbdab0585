// SPDX-License-Identifier: MIT
#include <map>

#include "handlers/chosen_files.hpp"
#include "handlers/search_actions.hpp"
#include "text.hpp"

namespace repo_daemon {

namespace {

/// What stands in a directory: a file's bytes, or the number of files below a directory.
struct Entry {
  bool is_directory = false;
  std::size_t count = 0;
};

std::map<std::string, Entry> entries_of(const Listing& listing, const std::string& directory) {
  std::map<std::string, Entry> entries;
  for (const SourceFile& file : listing.files) {
    std::string_view rest = file.path;
    if (rest == directory) {
      rest.remove_prefix(rest.rfind('/') + 1);
    } else if (!directory.empty()) {
      rest.remove_prefix(directory.size() + 1);
    }
    const std::size_t slash = rest.find('/');
    const bool is_directory = slash != std::string_view::npos;
    Entry& entry = entries[std::string(rest.substr(0, slash))];
    entry.is_directory = is_directory;
    entry.count += is_directory ? 1 : static_cast<std::size_t>(file.bytes);
  }
  return entries;
}

}  // namespace

std::string list_directory(const Keywords& keywords, const Repository& repository) {
  const std::string path = keywords.text_or("path", "");
  const Listing listing = chosen_files(repository, path, keywords.texts("patterns"));
  const std::map<std::string, Entry> entries = entries_of(listing, repository.path_of(path));
  const std::size_t limit = keywords.required_count("limit");
  Report report;
  std::size_t shown_entries = 0;
  for (const auto& [name, entry] : entries) {
    if (++shown_entries <= limit) {
      report.add(entry.is_directory ? name + "/  " + counted(entry.count, "file")
                                    : name + "  " + counted(entry.count, "byte"));
    }
  }
  return std::move(report).text(counted(entries.size(), "entry", "entries") +
                                (entries.size() > limit ? ", the first " + std::to_string(limit) + " shown" : "") +
                                completeness_of(listing));
}

}  // namespace repo_daemon
