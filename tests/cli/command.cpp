// SPDX-License-Identifier: MIT
#include "command.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <utility>

namespace cli_test {

namespace {

struct TemporaryFiles {
  std::vector<std::string> paths;
  ~TemporaryFiles() {
    for (const std::string& path : paths) {
      std::remove(path.c_str());
    }
  }
};

std::string content_of(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Starts the command with the signals as a shell leaves them.
pid_t start(std::vector<std::string> arguments, posix_spawn_file_actions_t& streams) {
  arguments.insert(arguments.begin(), TOOL_BINDING_COMMAND);
  std::vector<char*> words;
  for (std::string& argument : arguments) {
    words.push_back(argument.data());
  }
  words.push_back(nullptr);
  sigset_t broken_pipe;
  sigemptyset(&broken_pipe);
  sigaddset(&broken_pipe, SIGPIPE);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &broken_pipe);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t process = -1;
  EXPECT_EQ(posix_spawn(&process, words[0], &streams, &attributes, words.data(), environ), 0);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&streams);
  return process;
}

/// The exit status; the negative signal for a process that was ended by one.
int status_of(pid_t process) {
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

std::string file_of(const std::string& content) {
  static TemporaryFiles files;
  const std::string name = "tool_binding_" + std::to_string(getpid()) + "_" + std::to_string(files.paths.size());
  files.paths.push_back(testing::TempDir() + name);
  std::ofstream(files.paths.back(), std::ios::binary) << content;
  return files.paths.back();
}

std::string registry() {
  static const std::string path = file_of(R"({"tools": [
    {"name": "ping"},
    {"name": "fetch",
     "params": [{"name": "url", "type": "string", "synonyms": ["link"], "required": true},
                {"name": "tries", "type": "integer", "maximum": 9, "default": 3},
                {"name": "wait", "type": "number"}],
     "handler": {"parameters": [{"name": "url"}, {"name": "root"}]}},
    {"name": "browse", "actions": [{"name": "list"}, {"name": "find"}], "default_action": "list",
     "params": [{"name": "limit", "type": "integer", "default": 20, "action_defaults": {"list": 50}},
                {"name": "query", "type": "string", "required_for": ["find"]}]}]})");
  return path;
}

Finished run(const std::vector<std::string>& arguments, const std::string& input, const std::string& output,
             const Meanwhile& meanwhile) {
  const std::string in = file_of(input);
  const std::string out = output.empty() ? file_of("") : output;
  const std::string errors = file_of("");
  posix_spawn_file_actions_t streams;
  posix_spawn_file_actions_init(&streams);
  posix_spawn_file_actions_addopen(&streams, STDIN_FILENO, in.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&streams, STDOUT_FILENO, out.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&streams, STDERR_FILENO, errors.c_str(), O_WRONLY, 0);
  const pid_t command = start(arguments, streams);
  if (meanwhile) {
    meanwhile(command);
  }
  const int status = status_of(command);
  return {status, output.empty() ? content_of(out) : "", content_of(errors)};
}

Dialogue::Dialogue(const std::vector<std::string>& arguments) {
  std::signal(SIGPIPE, SIG_IGN);
  int to_command[2];
  int from_command[2];
  EXPECT_EQ(pipe2(to_command, O_CLOEXEC), 0);
  EXPECT_EQ(pipe2(from_command, O_CLOEXEC), 0);
  posix_spawn_file_actions_t streams;
  posix_spawn_file_actions_init(&streams);
  posix_spawn_file_actions_adddup2(&streams, to_command[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&streams, from_command[1], STDOUT_FILENO);
  process_ = start(arguments, streams);
  close(to_command[0]);
  close(from_command[1]);
  input_ = to_command[1];
  output_ = from_command[0];
}

bool Dialogue::say(const std::string& text) {
  return write(input_, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

std::string Dialogue::hear() {
  constexpr int patience_in_milliseconds = 20000;
  std::string line;
  char byte = 0;
  pollfd readable = {output_, POLLIN, 0};
  while (!line.ends_with('\n') && poll(&readable, 1, patience_in_milliseconds) == 1 && read(output_, &byte, 1) == 1) {
    line += byte;
  }
  return line;
}

void Dialogue::stop_listening() { close(std::exchange(output_, -1)); }

int Dialogue::end() {
  close(input_);
  if (output_ != -1) {
    stop_listening();
  }
  return status_of(process_);
}

}  // namespace cli_test
