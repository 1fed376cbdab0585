// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include "command.hpp"

namespace {

using cli_test::Dialogue;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

const std::vector<std::string> question = {"default", "--registry", registry()};
const std::string asked = R"({"tool": "browse", "name": "limit"})";
const std::string answered = "{\"tool\": \"browse\", \"default\": 20}\n";

TEST(Streams, AnswersBeforeItWaits) {
  Dialogue dialogue(question);
  ASSERT_TRUE(dialogue.say(asked + "\n"));
  EXPECT_EQ(dialogue.hear(), answered);
  ASSERT_TRUE(dialogue.say(asked + "\n" + asked.substr(0, 9)));
  EXPECT_EQ(dialogue.hear(), answered) << "half a line stands behind the request";
  ASSERT_TRUE(dialogue.say(asked.substr(9) + "\n"));
  EXPECT_EQ(dialogue.hear(), answered);
  EXPECT_EQ(dialogue.end(), 0);
}

TEST(Streams, EndQuietlyWhenNobodyListens) {
  Dialogue dialogue(question);
  ASSERT_TRUE(dialogue.say(asked + "\n"));
  EXPECT_EQ(dialogue.hear(), answered);
  dialogue.stop_listening();
  ASSERT_TRUE(dialogue.say(asked + "\n"));
  EXPECT_EQ(dialogue.end(), 0);
}

TEST(Streams, AnswerBlankLinesAndALastLineWithoutLineFeed) {
  const auto refused = [](const char* words) {
    return std::string(R"({"error": "ValueError", "message": "line )") + words + "\"}\n";
  };
  const Finished finished = run(question, "\n \t\r\n" + asked + "\n5\n" + asked);
  EXPECT_EQ(finished.out, refused("1: byte 1: a value is missing") + refused("2: byte 4: a value is missing") +
                              answered + refused("4: a request must be an object, and is a number") + answered);
}

TEST(Streams, TakeLinesOfAnyLength) {
  const std::string padding(10'000'000, ' ');
  const Finished finished = run(question, asked + padding + "\n" + asked + "\n" + padding + padding + asked + "\n");
  EXPECT_EQ(finished.out, answered + answered + answered);
}

TEST(Streams, AnswerManyLinesInOrder) {
  std::string input;
  for (int line = 0; line < 20000; ++line) {
    input += line % 2 == 0 ? asked + "\n" : "5\n";
  }
  const Finished finished = run(question, input);
  EXPECT_EQ(std::count(finished.out.begin(), finished.out.end(), '\n'), 20000);
  EXPECT_NE(finished.out.find("\"line 20000: "), std::string::npos);
  EXPECT_EQ(finished.status, 1);
}

TEST(Streams, FailWhenTheDiskIsFull) {
  const Finished finished = run(question, asked, "/dev/full");
  EXPECT_NE(finished.errors.find("cannot write standard output"), std::string::npos) << finished.errors;
  EXPECT_EQ(finished.status, 3);
  EXPECT_EQ(run({"--help"}, "", "/dev/full").status, 3);
}

}  // namespace
