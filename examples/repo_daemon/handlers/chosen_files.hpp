// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "repository.hpp"

namespace repo_daemon {

/// The files at and below a path, those alone that one of the patterns matches; all for no pattern. Throws
/// ArgumentError, also for patterns that would take long to compare.
[[nodiscard]] Listing chosen_files(const Repository& repository, std::string_view path,
                                   const std::vector<std::string>& patterns);

/// What was read for one request.
struct Reading {
  std::size_t files = 0;
  std::size_t no_text = 0;    ///< files that could not be read, are too large or are no text
  std::size_t not_tried = 0;  ///< files left when enough bytes for one request had been read

  /// The words for what a caller should know of files that were not read, empty when all were.
  [[nodiscard]] std::string remarks() const;
};

/// Reads one file after another and shows each text to `use`.
Reading read_each(const Repository& repository, const std::vector<SourceFile>& files,
                  const std::function<void(const SourceFile& file, std::string_view text)>& use);

/// The last line of an answer for a tree with more files than are looked at, empty for any other.
[[nodiscard]] std::string completeness_of(const Listing& listing);

}  // namespace repo_daemon
