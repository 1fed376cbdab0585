// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "conversation.hpp"

namespace repo_daemon_test {

namespace {

constexpr const char* ping = R"({"jsonrpc": "2.0", "id": "p", "method": "ping"})";
constexpr const char* pong = R"({"jsonrpc": "2.0", "id": "p", "result": {}})";

}  // namespace

TEST(RepoDaemonMessages, list_every_tool_with_its_schema) {
  Conversation conversation;
  const std::string list = conversation.ask(R"({"jsonrpc": "2.0", "id": 1, "method": "tools/list"})");
  for (const char* const part :
       {R"("name": "search", "description": "Looks through)", R"("name": "read", "description": "Shows)",
        R"("name": "files", "description": "Lists)", R"("name": "status", "description": "Says)",
        R"("inputSchema": {"type": "object", "properties": {"action": {"type": "string", )",
        R"("minimum": 1, "maximum": 1000})", R"("required": ["path"])", R"("annotations": {"readOnlyHint": true})"}) {
    EXPECT_NE(list.find(part), std::string::npos) << part << " is not in " << list;
  }
}

TEST(RepoDaemonMessages, survive_what_is_meant_to_stop_it) {
  Conversation conversation;
  const std::string call = R"({"jsonrpc": "2.0", "id": 1, "method": "tools/call", "params": {"name": "search", )"
                           R"("arguments": {"query": )";
  const std::string lines[] = {
      call + R"("\ud800"}}})",
      call + "\"" + std::string(1'000'000, 'a') + "\"}}}",
      call + std::string(900, '[') + std::string(900, ']') + "}}}",
      call + R"("a", "limit": 1e999, "context_lines": -1e400}}})",
      call + R"("a", "path": ")" + std::string(20'000, '/') + std::string(20'000, 'a') + "\"}}}",
      call + R"("a", "path": ")" + std::string(30'000, '.') + "\"}}}",
      call + R"("a", "patterns": ")" + std::string(100, '*') + "a" + std::string(100, '*') + "b\"}}}",
  };
  for (const std::string& line : lines) {
    EXPECT_TRUE(conversation.ask(line).starts_with(R"({"jsonrpc": "2.0", )")) << line.substr(0, 200);
  }
  EXPECT_EQ(conversation.ask(ping), pong);
}

TEST(RepoDaemonMessages, say_at_the_start_what_cannot_be_served) {
  const cli_test::Finished without_directory = cli_test::run({});
  EXPECT_EQ(without_directory.status, 2);
  EXPECT_EQ(without_directory.errors, "usage: repo_daemon DIRECTORY\n");
  const cli_test::Finished of_a_file = cli_test::run({cli_test::file_of("")});
  EXPECT_EQ(of_a_file.status, 2);
  EXPECT_TRUE(of_a_file.errors.ends_with(": Not a directory\n")) << of_a_file.errors;
}

}  // namespace repo_daemon_test
