// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "cli/command.hpp"
#include "source_tree.hpp"

namespace repo_daemon_test {

/// A daemon that serves a fresh source tree, and a client that talks with it.
class Conversation {
 public:
  Conversation();
  ~Conversation();

  [[nodiscard]] SourceTree& tree() { return tree_; }

  /// Sends a line that is not answered.
  void tell(const std::string& line);

  /// The answer to a line, without its line feed; what came of it when none comes within seconds.
  std::string ask(const std::string& line);

  /// The texts of what a tool answers, a line each, after "refused: " where it refuses; an error of the protocol as
  /// its message after "error: ".
  std::string call(const std::string& tool, const std::string& arguments);

 private:
  SourceTree tree_;
  cli_test::Dialogue daemon_;
};

/// A call of a tool, and all that comes of it. "ROOT" stands for the tree's root in either.
struct CallRow {
  const char* shows;
  const char* tool;
  std::string arguments;
  std::string expected;
};

/// What each call comes to, in one conversation.
void expect_calls(const std::vector<CallRow>& rows);

}  // namespace repo_daemon_test
