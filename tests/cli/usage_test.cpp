// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

std::vector<std::string> words(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), {}};
}

TEST(Usage, TellsByStatusWhatWentWrong) {
  const std::string with = " --registry " + registry();
  const std::string faulty = file_of(R"({"tools": [{"name": "a", "params": [{"name": "x", "type": "text"}]},
                                                   {"name": "a"}]})");
  const std::string no_object = file_of("[1]");
  const std::string no_file = "tool-binding: cannot read nowhere: No such file or directory\n";
  struct Row {
    std::string line;
    int status;
    std::string said;  ///< on standard output where the status is 0, else on standard error, and there alone
  };
  const Row rows[] = {{"--help", 0, "Exit status"},
                      {"admit --help", 0, "--context"},
                      {"--version", 0, "tool-binding "},
                      {"", 2, "tool-binding: a command is required\n"},
                      {"admti" + with, 2, "there is no command 'admti'; did you mean 'admit'?\n"},
                      {"admit --registy x", 2, "there is no option '--registy'; did you mean '--registry'?\n"},
                      {"admit --xyz=1" + with, 2, "there is no option '--xyz'\n"},
                      {"schema" + with + " brwse", 2, "no tool is named 'brwse'; did you mean 'browse'?\n"},
                      {"explain" + with + " Fetch", 2, "no tool is named 'Fetch'; did you mean 'fetch'?\n"},
                      {"explain" + with + " zzz", 2, "no tool is named 'zzz': the registry declares ping, fetch, "},
                      {"explain" + with + " --color always ping", 0, "\033["},
                      {"explain" + with + " --color some ping", 2, "--color"},
                      {"missing --help", 0, R"({"tool": "search", "action": "find", "arguments": {}})"},
                      {"default --help", 0, R"({"tool": "search", "name": "limit", "action": "list"})"},
                      {"admit", 2, "--registry is required"},
                      {"missing" + with + " - admit", 2, "admit"},
                      {"admit --jobs -1" + with, 2, "--jobs"},
                      {"admit --registry -", 2, "standard input can be read only once"},
                      {"default --registry " + faulty, 2, faulty + ": line 1: tools[0].params[0].type: "},
                      {"default --registry " + faulty, 2, "tool-binding: " + faulty + ": line 2: tools[1].name: "},
                      {"admit --registry " + file_of("{"), 2, ": line 1, byte 2: "},
                      {"admit" + with + " --context " + no_object, 2, no_object},
                      {"admit" + with + " --context " + file_of(""), 2, ": line 1, "},
                      {"admit --registry nowhere", 3, no_file},
                      {"admit" + with + " --context nowhere", 3, no_file},
                      {"admit" + with + " nowhere", 3, no_file},
                      {"admit" + with + " .", 3, "cannot read .: "}};
  for (const Row& row : rows) {
    const Finished finished = run(words(row.line));
    EXPECT_EQ(finished.status, row.status) << row.line;
    EXPECT_NE((row.status == 0 ? finished.out : finished.errors).find(row.said), std::string::npos)
        << row.line << ": " << finished.out << finished.errors;
    EXPECT_EQ(row.status == 0 ? finished.errors : finished.out, "") << row.line;
  }
}

TEST(Usage, ReadsTheRegistryFromStandardInput) {
  const Finished finished =
      run({"missing", "--registry", "-", file_of(R"({"tool": "a"})")}, R"({"tools": [{"name": "a"}]})");
  EXPECT_EQ(finished.out, "{\"tool\": \"a\", \"missing\": null}\n");
}

}  // namespace
