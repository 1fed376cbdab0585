// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "confined.hpp"
#include "glob.hpp"
#include "limits.hpp"
#include "listing.hpp"

namespace repo_daemon {

/// Goes through a tree in the order of its paths. When a limit is met, no more directories are read, and what was read
/// of those on the way is seen to its end.
///
/// Every directory is opened from the one before it, which stays open meanwhile: the way to a file is gone once,
/// however deep it stands, and cannot be led elsewhere. Neither links nor hidden names nor anything but files is seen.
/// Directories in which no pattern could match are not entered.
class Walk {
 public:
  /// Keeps references, for as long as it lives.
  Walk(const Limits& limits, const Glob& glob, const Deadline& deadline)
      : limits_(limits), glob_(glob), deadline_(deadline) {}

  /// The files below an open directory that match, by path; `path` leads to it from the root on.
  [[nodiscard]] Listing files_below(Descriptor directory, const std::string& path);

  /// What stands in it: the files that match and the directories in which some might.
  [[nodiscard]] DirectoryListing entries_of(const Descriptor& directory, const std::string& path);

 private:
  /// A directory on the way down: what is still to be seen of it, and what its path has come to.
  struct Level {
    Descriptor directory;
    std::vector<std::string> names;  ///< those of directories end in "/"
    std::size_t next = 0;
    std::size_t path_bytes;
    Glob::Places places;
  };

  void begin_at(const std::string& path);
  void enter(Descriptor directory, const Glob::Places& places);
  void see_directory(const Level& level, const std::string& name);
  void see_file(const Level& level, const std::string& name);
  [[nodiscard]] std::vector<std::string> names_of(const Descriptor& directory);
  [[nodiscard]] bool takes_time();
  [[nodiscard]] bool takes(std::string_view name);
  [[nodiscard]] bool is_stopped() const { return !listing_.left_out.stopped_at.empty(); }
  void stop_at_names();
  void stop_at(std::string limit);

  const Limits& limits_;
  const Glob& glob_;
  const Deadline& deadline_;
  std::vector<Level> levels_;
  std::string path_;  ///< of the innermost level
  std::size_t directories_ = 0;
  std::size_t entries_ = 0;
  std::size_t name_bytes_ = 0;
  bool is_over_ = false;  ///< whether not even what has been read of directories is looked at any more
  Listing listing_;
};

}  // namespace repo_daemon
