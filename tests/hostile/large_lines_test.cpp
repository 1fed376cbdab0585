// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>

#include "cli/command.hpp"

namespace {

using cli_test::Dialogue;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

constexpr std::size_t mebibyte = std::size_t{1024} * 1024;

/// Memory that a process has, in bytes.
std::size_t memory_of(pid_t process) {
  std::ifstream counters("/proc/" + std::to_string(process) + "/statm");
  std::size_t virtual_pages = 0;
  std::size_t pages = 0;
  counters >> virtual_pages >> pages;
  return pages * 4096;
}

TEST(LargeLines, AreAnsweredWhole) {
  const std::string text(4 * mebibyte, 'a');
  const std::string begun = R"({"tool": "fetch", "arguments": {"url": ")" + text;
  const std::string filled = R"(", "tries": 3, "wait": null})";
  const std::string ended = text + R"("}, "notes": [], "alias_hit": false, "bound": {"url": ")" + text + filled +
                            R"(, "keywords": {"url": ")" + text + filled + "}\n";
  const Finished finished =
      run({"admit", "--registry", registry()}, begun + "\"}}\n" + begun + "\xFF\"}}\n" + begun + "\"}}");
  const std::string admitted = R"({"tool": "fetch", "arguments": {"url": ")" + ended;
  const std::string refused = R"({"error": "ValueError", "message": "line 2: byte )" +
                              std::to_string(begun.size() + 1) + ": this byte is not valid UTF-8\"}\n";
  EXPECT_TRUE(finished.out == admitted + refused + admitted) << finished.out.size() << finished.errors;
}

TEST(LargeLines, ThatDoNotEndTakeNoMoreMemory) {
  Dialogue dialogue({"admit", "--registry", registry()});
  const std::string piece(mebibyte, ' ');
  const auto say = [&](int pieces) {
    for (; pieces > 0; --pieces) {
      ASSERT_TRUE(dialogue.say(piece));
    }
  };
  ASSERT_TRUE(dialogue.say(R"({"jsonrpc": "2.0")"));
  say(300);
  const std::size_t memory = memory_of(dialogue.process());
  EXPECT_GT(memory, 200 * mebibyte);
  say(400);
  EXPECT_LT(memory_of(dialogue.process()), memory + 50 * mebibyte);
  ASSERT_TRUE(dialogue.say("}\n" + std::string(R"({"tool": "ping"})") + "\n"));
  EXPECT_EQ(dialogue.hear(),
            R"({"jsonrpc": "2.0", "id": null, "error": {"code": -32700, "message": "line 1: byte 268435456: )"
            "a line of 256 MiB or more cannot be read\"}}\n");
  EXPECT_EQ(dialogue.hear(),
            R"({"tool": "ping", "arguments": {}, "notes": [], "alias_hit": false, "bound": {}, "keywords": {}})"
            "\n");
  EXPECT_EQ(dialogue.end(), 1);
}

TEST(LargeLines, JustShortEnoughAreAnswered) {
  Dialogue dialogue({"admit", "--registry", registry()});
  const std::string piece(mebibyte, ' ');
  const std::string request = R"({"tool": "ping"})";
  for (int pieces = 0; pieces < 255; ++pieces) {
    ASSERT_TRUE(dialogue.say(piece));
  }
  ASSERT_TRUE(dialogue.say(std::string(mebibyte - 1 - request.size(), ' ') + request + "\n"));
  EXPECT_TRUE(dialogue.hear().starts_with(R"({"tool": "ping", )"));
  EXPECT_EQ(dialogue.end(), 0);
}

}  // namespace
