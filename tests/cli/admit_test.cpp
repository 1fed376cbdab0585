// SPDX-License-Identifier: MIT
#include "command.hpp"
#include "support/rows.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

/// The answer to one line and the exit status that tells a refusal from it.
void expect_answer(const std::vector<std::string>& arguments, const std::string& line, const std::string& answer,
                   const std::string& place) {
  const Finished finished = run(arguments, line);
  EXPECT_EQ(finished.out, answer + "\n") << place;
  EXPECT_EQ(finished.errors, "") << place;
  EXPECT_EQ(finished.status, answer.find("\"error\"") == answer.npos ? 0 : 1) << place;
}

bool test_rows_of(const std::string& command) {
  return tool_binding::test_rows(command, [command](const tool_binding::Row& row) {
    std::vector<std::string> arguments = {command, "--registry", registry()};
    if (row.set.contains("context")) {
      arguments.insert(arguments.end(), {"--context", file_of(row.setting("context"))});
    }
    if (row.set.contains("options")) {
      arguments.push_back(row.setting("options"));
    }
    expect_answer(arguments, row.given + "\n", row.expected, row.place);
  });
}

[[maybe_unused]] const bool answer_rows = test_rows_of("admit") && test_rows_of("missing") && test_rows_of("default");

TEST(Answers, AreGivenToLinesThatStandBadlyInATable) {
  const std::string ping = R"({"tool": "ping", "missing": null})";
  const std::string failed = R"({"error": "ValueError", "message": "line 1: byte )";
  const std::vector<std::string> missing = {"missing", "--registry", registry()};
  expect_answer(missing, "{\"tool\": \"ping\"}\r\n", ping, "a carriage return");
  expect_answer(missing, "{\"tool\": \"\xff\"}", failed + "11: this byte is not valid UTF-8\"}", "a byte");
  expect_answer(missing, std::string(1001, '['), failed + "1001: the text is nested deeper than 1,000 levels\"}",
                "many levels");
  expect_answer({"admit", "--registry", registry()},
                R"({"tool": "fetch", "arguments": {"url": "a", "wait": )" + std::string(400, '9') + "}}",
                R"({"tool": "fetch", "error": "OverflowError", )"
                R"("message": "the integer is too large for a floating number"})",
                "too wide a number");
}

}  // namespace
