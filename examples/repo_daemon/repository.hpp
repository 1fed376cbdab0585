// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "confined.hpp"
#include "glob.hpp"
#include "limits.hpp"
#include "listing.hpp"

namespace repo_daemon {

/// The files below one directory. It is read afresh for each request and keeps nothing. Nothing with a hidden name, one
/// that begins with ".", is listed or read; nor are links.
class Repository {
 public:
  /// Throws std::filesystem::filesystem_error or std::system_error for anything but a directory that can be read.
  explicit Repository(const std::filesystem::path& directory, const Limits& limits = {});

  /// The directory, absolute and without links.
  [[nodiscard]] const std::filesystem::path& root() const noexcept { return root_; }

  [[nodiscard]] const Limits& limits() const noexcept { return limits_; }

  /// The files that match, at and below a path as a request gives it, empty for the root. Throws ArgumentError.
  [[nodiscard]] Listing files_below(std::string_view asked, const Glob& glob, const Deadline& deadline) const;

  /// What stands in a directory and might match, or a file alone. Throws ArgumentError.
  [[nodiscard]] DirectoryListing entries_of(std::string_view asked, const Glob& glob, const Deadline& deadline) const;

  /// The path from the root on. Throws ArgumentError.
  [[nodiscard]] std::string path_of(std::string_view asked) const { return path_below(root_, asked); }

  /// What is in a file, by its path from the root on. Throws ArgumentError, also for a file that is larger than the
  /// limit or is not text.
  [[nodiscard]] std::string text_of(const std::string& path, const Deadline& deadline) const;

 private:
  [[nodiscard]] std::string content_of(const std::string& path, const Deadline& deadline) const;

  Limits limits_;
  std::filesystem::path root_;
  Descriptor directory_;
};

}  // namespace repo_daemon
