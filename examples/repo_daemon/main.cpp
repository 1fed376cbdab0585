// SPDX-License-Identifier: MIT
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "lines.hpp"
#include "repository.hpp"
#include "server.hpp"
#include "tools.hpp"

namespace {

namespace tb = tool_binding;

/// Answers line after line, until the input ends or nobody reads the answers.
void serve(repo_daemon::Server& server) {
  constexpr std::size_t most_bytes = 4 * 1024 * 1024;
  std::string line;
  while (std::cout) {
    const repo_daemon::LineKind kind = repo_daemon::read_line(std::cin, line, most_bytes);
    if (kind == repo_daemon::LineKind::none) {
      return;
    }
    const auto answer =
        kind == repo_daemon::LineKind::whole ? server.answer(line) : repo_daemon::Server::refuse_long_line(most_bytes);
    if (answer) {
      std::cout << *answer << '\n' << std::flush;
    }
  }
}

int run(const std::filesystem::path& directory) {
  const repo_daemon::Repository repository(directory);
  const tb::KeywordArguments context = {{"repository", tb::KeywordArgument::context(repository)},
                                        {"root", tb::KeywordArgument::context(repository.root())}};
  repo_daemon::Server server(repo_daemon::declare_all(context), context);
  serve(server);
  return 0;
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) {
    std::cerr << "usage: repo_daemon DIRECTORY\n";
    return 2;
  }
  std::ios::sync_with_stdio(false);
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return run(words[1]);
  } catch (const std::exception& failure) {
    std::cerr << "repo_daemon: " << failure.what() << '\n';
    return 2;
  }
}
