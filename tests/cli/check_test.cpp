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
            file + ":3: warning: tools[0].params[0].default: '9' would become 9 if it were sent\n" + file +
                ":4: error: tools[0].params[1].name: 'p' is declared already at tools[0].params[0].name\n" + file +
                ":4: error: tools[0].params[1].type: must be integer, number, boolean, string or array, not "
                "'int'; did you mean 'integer'?\n" +
                file + ":5: error: tools[0].params[1].enum: must be a list, not an integer\n" + file +
                ":5: error: tools[0].params[1].maximum: must be a number, not True\n");
  EXPECT_EQ(finished.errors, "");
  EXPECT_EQ(finished.status, 2);
}

TEST(Check, LetsWarningsPassAndReadsStandardInput) {
  const std::string doubtful = R"({"tools": [{"name": "t", "params": [{"name": "repo", "type": "array"}]}]})";
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"check"}, {"check", "-"}, {"check", "--registry", "-"}}) {
    const Finished finished = run(arguments, doubtful);
    EXPECT_EQ(finished.out.substr(0, 51), "standard input:1: warning: tools[0].params[0].name:");
    EXPECT_EQ(finished.status, 0);
  }
}

TEST(Check, DoubtsNothingWhereAShapeIsWrong) {
  const Finished finished = run({"check"}, R"({"tools": [{"name": "t", "params": [{"name": "p", "type": "array"}],
      "handler": {"parameters": [{"nam": "p"}]}}]})");
  EXPECT_EQ(finished.out.find("warning"), std::string::npos) << finished.out;
  EXPECT_EQ(finished.status, 2);
}

}  // namespace
