// SPDX-License-Identifier: MIT
#include "handlers/chosen_files.hpp"

#include <algorithm>

#include "glob.hpp"
#include "text.hpp"
#include "tool_binding/errors.hpp"

namespace repo_daemon {

namespace {

/// The work for one file is bounded by the length of all patterns together.
std::vector<Glob> globs_of(const std::vector<std::string>& patterns) {
  constexpr std::size_t most_bytes = 400;
  std::size_t bytes = 0;
  for (const std::string& pattern : patterns) {
    bytes += pattern.size();
  }
  if (bytes > most_bytes) {
    throw tool_binding::ArgumentError("the patterns must not be longer than " + std::to_string(most_bytes) +
                                      " bytes together");
  }
  return {patterns.begin(), patterns.end()};
}

}  // namespace

Listing chosen_files(const Repository& repository, std::string_view path, const std::vector<std::string>& patterns) {
  const std::vector<Glob> globs = globs_of(patterns);
  Listing listing = repository.files_below(path);
  if (!globs.empty()) {
    std::erase_if(listing.files, [&](const SourceFile& file) {
      return std::none_of(globs.begin(), globs.end(), [&](const Glob& glob) { return glob.matches(file.path); });
    });
  }
  return listing;
}

std::string Reading::remarks() const {
  std::string words;
  if (no_text != 0) {
    words += ", " + counted(no_text, "file") + " passed over: no text, too large or not readable";
  }
  if (not_tried != 0) {
    words += ", " + counted(not_tried, "file") + " not read: narrow the path or the patterns";
  }
  return words;
}

Reading read_each(const Repository& repository, const std::vector<SourceFile>& files,
                  const std::function<void(const SourceFile& file, std::string_view text)>& use) {
  constexpr std::size_t most_bytes_in_all = 256 * 1024 * 1024;
  Reading reading;
  std::size_t bytes = 0;
  for (std::size_t place = 0; place < files.size(); ++place) {
    if (bytes > most_bytes_in_all) {
      reading.not_tried = files.size() - place;
      break;
    }
    bytes += std::min(static_cast<std::size_t>(files[place].bytes), Repository::most_bytes);
    try {
      const std::string text = repository.text_of(files[place].path);
      ++reading.files;
      use(files[place], text);
    } catch (const tool_binding::ArgumentError&) {
      ++reading.no_text;
    }
  }
  return reading;
}

std::string completeness_of(const Listing& listing) {
  return listing.complete ? "" : ", of the first " + counted(Repository::most_files, "file") + " found";
}

}  // namespace repo_daemon
