// SPDX-License-Identifier: MIT
#include "listing.hpp"

#include "limits.hpp"
#include "text.hpp"

namespace repo_daemon {

SourceFile file_of(std::string path, const struct stat& facts) {
  return {std::move(path), facts.st_size, std::int64_t{facts.st_mtim.tv_sec} * 1'000'000'000 + facts.st_mtim.tv_nsec};
}

std::string LeftOut::words() const {
  std::string words;
  if (!stopped_at.empty()) {
    words += ", stopped at " + stopped_at + ": narrow the path or the patterns";
  }
  if (deep_directories != 0) {
    words +=
        ", " + counted(deep_directories, "directory", "directories") + " not entered, too deep: begin further down";
  }
  if (long_paths != 0) {
    words +=
        ", " + counted(long_paths, "path") + " left out, longer than " + std::to_string(most_path_bytes) + " bytes";
  }
  if (closed_directories != 0) {
    words += ", " + counted(closed_directories, "directory", "directories") + " not entered, not readable";
  }
  return words;
}

}  // namespace repo_daemon
