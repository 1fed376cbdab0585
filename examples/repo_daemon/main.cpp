// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

#include "repository.hpp"
#include "tools.hpp"

namespace {

namespace tb = tool_binding;

void run(const std::filesystem::path& directory) {
  const repo_daemon::Repository repository(directory);
  const tb::KeywordArguments context = {{"repository", tb::KeywordArgument::context(repository)},
                                        {"root", tb::KeywordArgument::context(repository.root())}};
  if (repo_daemon::served_tools(context).serve() > 0) {
    std::_Exit(1);  // a call that does not end still uses the repository
  }
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) {
    std::cerr << "usage: repo_daemon DIRECTORY\n";
    return 2;
  }
  try {
    run(words[1]);
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "repo_daemon: " << failure.what() << '\n';
    return 2;
  }
}
