// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace repo_daemon {

struct SourceFile {
  std::string path;  ///< from the root on
  std::int64_t bytes = 0;
  std::int64_t modified = 0;  ///< nanoseconds since 1970
};

[[nodiscard]] SourceFile file_of(std::string path, const struct stat& facts);

/// What a listing lacks.
struct LeftOut {
  std::string stopped_at;              ///< the limit that ended the listing, as "50000 files"; empty for none
  std::size_t deep_directories = 0;    ///< not entered: too many levels down
  std::size_t long_paths = 0;          ///< of files and directories
  std::size_t closed_directories = 0;  ///< that cannot be read

  /// The words for it behind the summary of an answer, empty when nothing is left out.
  [[nodiscard]] std::string words() const;
};

struct Listing {
  std::vector<SourceFile> files;  ///< by path
  LeftOut left_out;
};

/// What stands in one directory.
struct DirectoryEntry {
  std::string name;
  bool is_directory = false;
  std::int64_t bytes = 0;  ///< of a file
};

struct DirectoryListing {
  std::vector<DirectoryEntry> entries;  ///< by name
  LeftOut left_out;
};

}  // namespace repo_daemon
