// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "glob.hpp"
#include "handlers/keywords.hpp"
#include "repository.hpp"

namespace repo_daemon {

/// The files that a call chooses by its "patterns". Throws ArgumentError for patterns that are not understood or would
/// take long to compare.
[[nodiscard]] Glob chosen_by(const Keywords& keywords);

/// What was read for one request.
struct Reading {
  std::size_t files = 0;
  std::size_t no_text = 0;    ///< files that could not be read, are too large or are not text
  std::size_t not_tried = 0;  ///< files left when a limit was met
  std::string stopped_at;     ///< that limit, as "10 seconds"

  /// The words for what a caller should know of files that were not read, empty when all were.
  [[nodiscard]] std::string remarks() const;
};

/// Reads one file after another and shows each text to `use`.
Reading read_each(const Repository& repository, const std::vector<SourceFile>& files, const Deadline& deadline,
                  const std::function<void(const SourceFile& file, std::string_view text)>& use);

}  // namespace repo_daemon
