// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace repo_daemon_test {

/// A small directory of sources, beside things that must stay out of reach. Removed with its owner.
///
/// Files are an hour older each, in the order in which they are written; the first is of 2001-09-09 01:46:40 UTC.
class SourceTree {
 public:
  SourceTree();
  SourceTree(const SourceTree&) = delete;
  SourceTree& operator=(const SourceTree&) = delete;
  ~SourceTree();

  [[nodiscard]] std::string root() const { return (directory_ / "root").string(); }

  /// Writes one more, with the directories that lead to it. The root is "root/".
  void write(const std::string& path, const std::string& content);

 private:
  std::filesystem::path directory_;
  int written_ = 0;
};

}  // namespace repo_daemon_test
