// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

/// Runs the built command as a shell would.
namespace cli_test {

/// The path of a file with that content, which is removed when the program ends.
std::string file_of(const std::string& content);

/// The path of a registry with the tools "ping", which takes nothing, "fetch" and "browse".
std::string registry();

struct Finished {
  int status;
  std::string out;
  std::string errors;
};

/// What is done to a command while it runs.
using Meanwhile = std::function<void(pid_t command)>;

/// A finished run. Standard output goes to a file of that name where one is given.
Finished run(const std::vector<std::string>& arguments, const std::string& input = "", const std::string& output = "",
             const Meanwhile& meanwhile = {});

/// A run that is talked with while it goes on.
class Dialogue {
 public:
  explicit Dialogue(const std::vector<std::string>& arguments);

  /// False once the command reads no more.
  bool say(const std::string& text);

  /// The next line of the answers with its line feed; what came of it when none comes within seconds.
  std::string hear();

  void stop_listening();

  [[nodiscard]] pid_t process() const { return process_; }

  /// Ends the input and returns the exit status.
  int end();

 private:
  int input_ = -1;
  int output_ = -1;
  pid_t process_ = -1;
};

}  // namespace cli_test
