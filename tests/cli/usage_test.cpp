// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

struct Row {
  const char* shows;
  std::vector<std::string> arguments;
  int status;
  std::string out_holds;
  std::string errors_hold;
};

TEST(Usage, TellsByStatusWhatWentWrong) {
  const std::string faulty = file_of(R"({"tools": [{"name": "a", "params": [{"name": "x", "type": "text"}]},
                                                   {"name": "a"}]})");
  const std::string no_object = file_of("[1]");
  const std::vector<Row> rows = {
      {"help", {"--help"}, 0, "Exit status", ""},
      {"help of a command", {"admit", "--help"}, 0, "--context", ""},
      {"version", {"--version"}, 0, "tool-binding ", ""},
      {"no command", {}, 2, "", "tool-binding: a command is required\n"},
      {"unknown command", {"admti"}, 2, "", "admti"},
      {"no registry", {"admit"}, 2, "", "--registry is required"},
      {"two commands", {"missing", "--registry", registry(), "-", "admit"}, 2, "", "admit"},
      {"standard input twice", {"admit", "--registry", "-"}, 2, "", "standard input is one file only"},
      {"first fault of a registry",
       {"default", "--registry", faulty},
       2,
       "",
       faulty + ": line 1: tools[0].params[0].type: "},
      {"last fault of a registry",
       {"default", "--registry", faulty},
       2,
       "",
       "tool-binding: " + faulty + ": line 2: tools[1].name: "},
      {"a registry that is no JSON", {"admit", "--registry", file_of("{")}, 2, "", ": line 1, byte 2: "},
      {"a context that is no object", {"admit", "--registry", registry(), "--context", no_object}, 2, "", no_object},
      {"a context that is no JSON", {"admit", "--registry", registry(), "--context", file_of("")}, 2, "", ": line 1, "},
      {"no registry file",
       {"admit", "--registry", "nowhere"},
       3,
       "",
       "cannot read nowhere: No such file or directory\n"},
      {"no context file",
       {"admit", "--registry", registry(), "--context", "nowhere"},
       3,
       "",
       "cannot read nowhere: No such file or directory\n"},
      {"no requests file",
       {"admit", "--registry", registry(), "nowhere"},
       3,
       "",
       "cannot read nowhere: No such file or directory\n"},
      {"a directory", {"admit", "--registry", registry(), "."}, 3, "", "cannot read .: "},
  };
  for (const Row& row : rows) {
    const Finished finished = run(row.arguments);
    EXPECT_EQ(finished.status, row.status) << row.shows;
    EXPECT_NE(finished.out.find(row.out_holds), std::string::npos) << row.shows << ": " << finished.out;
    EXPECT_NE(finished.errors.find(row.errors_hold), std::string::npos) << row.shows << ": " << finished.errors;
    EXPECT_EQ(finished.out.empty(), row.out_holds.empty()) << row.shows << ": " << finished.out;
    EXPECT_EQ(finished.errors.empty(), row.errors_hold.empty()) << row.shows << ": " << finished.errors;
  }
}

TEST(Usage, ReadsTheRegistryFromStandardInput) {
  const Finished finished =
      run({"missing", "--registry", "-", file_of(R"({"tool": "a"})")}, R"({"tools": [{"name": "a"}]})");
  EXPECT_EQ(finished.out, "{\"tool\": \"a\", \"missing\": null}\n");
}

}  // namespace
