// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "cli/command.hpp"

namespace repo_daemon_test {

/// The page for people shows what the daemon says: each line after "> " is sent, each after "< " is the answer.
TEST(RepoDaemonSession, is_as_the_page_shows_it) {
  const std::string directory = REPO_DAEMON_SOURCES;
  std::ifstream page(directory + "/README.md");
  cli_test::Dialogue daemon({directory + "/sample"});
  int answers = 0;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("> ")) {
      EXPECT_TRUE(daemon.say(line.substr(2) + "\n"));
    } else if (line.starts_with("< ")) {
      EXPECT_EQ(daemon.hear(), line.substr(2) + "\n");
      ++answers;
    }
  }
  EXPECT_GT(answers, 4);
  EXPECT_EQ(daemon.end(), 0);
}

}  // namespace repo_daemon_test
