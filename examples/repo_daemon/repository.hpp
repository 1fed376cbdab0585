// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "confined.hpp"

namespace repo_daemon {

struct SourceFile {
  std::string path;  ///< from the root on
  std::int64_t bytes = 0;
  std::int64_t modified = 0;  ///< nanoseconds since 1970
};

struct Listing {
  std::vector<SourceFile> files;  ///< by path
  bool complete = true;           ///< false when there are more files than one request looks at
};

/// The files below one directory. It is read afresh for each request and keeps nothing. Hidden files are not listed,
/// nor are links.
class Repository {
 public:
  static constexpr std::size_t most_files = 50'000;
  static constexpr std::size_t most_bytes = 8 * 1024 * 1024;

  /// Throws std::filesystem::filesystem_error or std::system_error for what is no directory that can be read.
  explicit Repository(const std::filesystem::path& directory);

  /// The directory, absolute and without links.
  [[nodiscard]] const std::filesystem::path& root() const noexcept { return root_; }

  /// The files at and below a path as a request gives it, empty for all of them. Throws ArgumentError.
  [[nodiscard]] Listing files_below(std::string_view asked) const;

  /// The path from the root on. Throws ArgumentError.
  [[nodiscard]] std::string path_of(std::string_view asked) const { return path_below(root_, asked); }

  /// What is in a file, by its path from the root on. Throws ArgumentError, also for a file that is larger than
  /// `most_bytes` or is no text.
  [[nodiscard]] std::string text_of(const std::string& path) const;

 private:
  std::filesystem::path root_;
  Descriptor directory_;
};

}  // namespace repo_daemon
