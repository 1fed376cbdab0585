// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::run;

constexpr std::size_t most_read = 32'000'000;

const std::string question_line = R"({"tool": "t", "name": "p"})";

std::string registry_with(int value) {
  return R"({"tools": [{"name": "t", "params": [{"name": "p", "type": "integer", "default": )" + std::to_string(value) +
         "}]}]}";
}

/// How much a process has read so far.
std::size_t read_by(pid_t process) {
  std::ifstream counters("/proc/" + std::to_string(process) + "/io");
  std::string name;
  std::string count = "0";
  counters >> name >> count;
  return std::stoul(count);  // unlike a stream, whatever the locale
}

/// Asks the command while something happens to its registry after a part of it was read.
Finished ask_while(void (*change)(const std::string& path)) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    const std::string path = file_of(registry_with(1) + std::string(most_read, ' '));
    std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    bool midway = false;
    const Finished finished = run({"default", "--registry", path}, question_line, "", [&](pid_t command) {
      for (int looks = 0; read_by(command) < most_read / 10 && looks < 1'000'000; ++looks) {
      }
      kill(command, SIGSTOP);
      midway = read_by(command) < most_read / 2;
      change(path);
      kill(command, SIGCONT);
    });
    std::filesystem::remove(path);
    if (midway) {
      return finished;
    }
  }
  ADD_FAILURE() << "the command was never met while it read";
  return {};
}

void replace(const std::string& path) { std::filesystem::rename(file_of(registry_with(2)), path); }
void cut(const std::string& path) { std::filesystem::resize_file(path, most_read / 2); }
void overwrite(const std::string& path) {
  std::fstream(path, std::ios::in | std::ios::out | std::ios::binary) << registry_with(2);
}
void append(const std::string& path) { std::ofstream(path, std::ios::app | std::ios::binary) << ' '; }

TEST(ChangingFiles, ARegistryIsReadAsItWasOrNotAtAll) {
  const Finished replaced = ask_while(replace);
  EXPECT_EQ(replaced.out, "{\"tool\": \"t\", \"default\": 1}\n") << replaced.errors;
  for (const auto change : {cut, overwrite, append}) {
    const Finished changed = ask_while(change);
    EXPECT_NE(changed.errors.find(" was written to while it was read: "), std::string::npos) << changed.errors;
    EXPECT_EQ(changed.out, "");
    EXPECT_EQ(changed.status, 3);
  }
}

/// Asks the command with a registry that a pipe gives it byte after byte.
Finished ask_through_pipe(const std::string& registry) {
  const std::string path = file_of("");
  std::filesystem::remove(path);
  EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
  return run({"default", "--registry", path}, question_line, "", [&](pid_t) {
    const int pipe = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    for (const char byte : registry) {
      EXPECT_EQ(write(pipe, &byte, 1), 1);
      std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    close(pipe);
  });
}

TEST(ChangingFiles, ARegistryMayComeInPieces) {
  const std::string registry = registry_with(1);
  EXPECT_EQ(ask_through_pipe(registry).out, "{\"tool\": \"t\", \"default\": 1}\n");
  const Finished cut = ask_through_pipe(registry.substr(0, registry.size() - 2));
  EXPECT_NE(cut.errors.find(": line 1, byte " + std::to_string(registry.size() - 1) + ": "), std::string::npos)
      << cut.errors;
  EXPECT_EQ(cut.status, 2);
}

}  // namespace
