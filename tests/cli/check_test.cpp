// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::run;

TEST(Check, NamesErrorsAndWarningsByTheirLines) {
  const std::string file = file_of(R"({"tools": [
  {"name": "t", "params": [
    {"name": "p", "type": "integer", "default": "9"},
    {"name": "p", "type": "int",
     "enum": 5, "maximum": true}]}]})");
  const Finished finished = run({"check", file});
  EXPECT_EQ(finished.out,
            file + ":3: warning: tools[0].params[0].default ('p' of t): '9' would become 9 if it were sent\n" + file +
                ":4: error: tools[0].params[1].name ('p' of t): 'p' is already declared at tools[0].params[0].name\n" +
                file +
                ":4: error: tools[0].params[1].type ('p' of t): must be integer, number, boolean, string or array, "
                "not 'int'; did you mean 'integer'?\n" +
                file + ":5: error: tools[0].params[1].enum ('p' of t): must be a list, not an integer\n" + file +
                ":5: error: tools[0].params[1].maximum ('p' of t): must be a number, not True\n");
  EXPECT_EQ(finished.errors, "");
  EXPECT_EQ(finished.status, 2);
}

TEST(Check, LetsWarningsPassAndReadsStandardInput) {
  const std::string doubtful = R"({"tools": [{"name": "t", "params": [{"name": "repo", "type": "array"}]}]})";
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"check"}, {"check", "-"}, {"check", "--registry", "-"}}) {
    const Finished finished = run(arguments, doubtful);
    EXPECT_EQ(finished.out.substr(0, 51), "standard input:1: warning: tools[0].params[0].name ");
    EXPECT_EQ(finished.status, 0);
  }
}

TEST(Check, NamesWhatStandsAroundAPlace) {
  const Finished finished = run({"check"}, R"({"tools": [
    {"name": "web.search", "actions": [{"name": "find"}, {"name": "find"}]},
    {"params": 5}], "tols": 1})");
  EXPECT_EQ(finished.out,
            "standard input:2: error: tools[0].actions[1].name ('find' of web.search): 'find' is already declared at "
            "tools[0].actions[0].name\n"
            "standard input:2: warning: tools[0].name (web.search): 'web.search' is refused by common clients: they "
            "accept 1 to 64 characters from A-Z, a-z, 0-9, _ and -\n"
            "standard input:3: error: tools[1].params: must be a list, not an integer\n"
            "standard input:3: error: tools[1].name: is missing\n"
            "standard input:3: error: tols: is not a known key; did you mean 'tools'?\n");
}

TEST(Check, DoubtsNothingWhereAShapeIsWrong) {
  const Finished finished = run({"check"}, R"({"tools": [{"name": "t", "params": [{"name": "p", "type": "array"}],
      "handler": {"parameters": [{"nam": "p"}]}}]})");
  EXPECT_EQ(finished.out.find("warning"), std::string::npos) << finished.out;
  EXPECT_EQ(finished.status, 2);
}

}  // namespace
