// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "command.hpp"

namespace {

using cli_test::Dialogue;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

/// The same answers come from one thread and from several.
std::vector<std::vector<std::string>> questions() {
  return {{"default", "--registry", registry()}, {"default", "--jobs", "3", "--registry", registry()}};
}
const std::string asked = R"({"tool": "browse", "name": "limit"})";
const std::string answered = "{\"tool\": \"browse\", \"default\": 20}\n";

TEST(Streams, AnswersBeforeItWaits) {
  for (const auto& question : questions()) {
    Dialogue dialogue(question);
    ASSERT_TRUE(dialogue.say(asked + "\n"));
    EXPECT_EQ(dialogue.hear(), answered);
    ASSERT_TRUE(dialogue.say(asked + "\n" + asked.substr(0, 9)));
    EXPECT_EQ(dialogue.hear(), answered) << "half a line stands behind the request";
    ASSERT_TRUE(dialogue.say(asked.substr(9) + "\n"));
    EXPECT_EQ(dialogue.hear(), answered);
    EXPECT_EQ(dialogue.end(), 0);
  }
}

TEST(Streams, EndQuietlyWhenNobodyListens) {
  for (const auto& question : questions()) {
    Dialogue dialogue(question);
    ASSERT_TRUE(dialogue.say(asked + "\n"));
    EXPECT_EQ(dialogue.hear(), answered);
    dialogue.stop_listening();
    ASSERT_TRUE(dialogue.say(asked + "\n"));
    siginfo_t ended = {};
    waitid(P_PID, static_cast<id_t>(dialogue.process()), &ended, WEXITED | WNOWAIT);
    EXPECT_EQ(dialogue.end(), 0) << "it does not wait for more input";
  }
}

TEST(Streams, AnswerBlankLinesAndALastLineWithoutLineFeed) {
  const auto refused = [](const char* words) {
    return std::string(R"({"error": "ValueError", "message": "line )") + words + "\"}\n";
  };
  for (const auto& question : questions()) {
    const Finished finished = run(question, "\n \t\r\n" + asked + "\n5\n" + asked);
    EXPECT_EQ(finished.out, refused("1: byte 1: a value is missing") + refused("2: byte 4: a value is missing") +
                                answered + refused("4: a request must be an object, not an integer") + answered);
  }
}

TEST(Streams, TakeLinesOfAnyLength) {
  const std::string padding(10'000'000, ' ');
  for (const auto& question : questions()) {
    const Finished finished = run(question, asked + padding + "\n" + asked + "\n" + padding + padding + asked + "\n");
    EXPECT_EQ(finished.out, answered + answered + answered);
  }
}

TEST(Streams, AnswerManyLinesInOrder) {
  std::string input;
  std::string expected;
  for (int line = 1; line <= 60000; ++line) {
    input += line % 2 == 0 ? "5\n" : asked + "\n";
    expected += line % 2 == 0 ? R"({"error": "ValueError", "message": "line )" + std::to_string(line) +
                                    ": a request must be an object, not an integer\"}\n"
                              : answered;
  }
  for (const auto& question : questions()) {
    const Finished finished = run(question, input);
    EXPECT_TRUE(finished.out == expected);
    EXPECT_EQ(finished.status, 1);
  }
}

TEST(Streams, FailWhenTheDiskIsFull) {
  for (const auto& question : questions()) {
    const Finished finished = run(question, asked, "/dev/full");
    EXPECT_NE(finished.errors.find("cannot write standard output"), std::string::npos) << finished.errors;
    EXPECT_EQ(finished.status, 3);
  }
  EXPECT_EQ(run({"--help"}, "", "/dev/full").status, 3);
}

}  // namespace
