// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "conversation.hpp"

namespace repo_daemon_test {

namespace {

struct MessageRow {
  const char* shows;
  std::string message;
  std::string answer;
};

void expect_answers(Conversation& conversation, const std::vector<MessageRow>& rows) {
  for (const MessageRow& row : rows) {
    EXPECT_EQ(conversation.ask(row.message), row.answer) << row.shows;
  }
}

std::string error(const std::string& id, const std::string& code, const std::string& words) {
  return R"({"jsonrpc": "2.0", "id": )" + id + R"(, "error": {"code": )" + code + R"(, "message": ")" + words + "\"}}";
}

std::string initialize(const std::string& version) {
  return R"({"jsonrpc": "2.0", "id": 1, "method": "initialize", "params": {"protocolVersion": ")" + version + "\"}}";
}

std::string initialized(const std::string& version) {
  return R"({"jsonrpc": "2.0", "id": 1, "result": {"protocolVersion": ")" + version +
         R"(", "capabilities": {"tools": {}}, "serverInfo": {"name": "repo_daemon", "version": "1.0"}, )"
         R"("instructions": "Tools over the files of one directory. Paths are given from that directory on."}})";
}

constexpr const char* ping = R"({"jsonrpc": "2.0", "id": "p", "method": "ping"})";
constexpr const char* pong = R"({"jsonrpc": "2.0", "id": "p", "result": {}})";

}  // namespace

TEST(RepoDaemonMessages, answer_what_is_no_request_with_an_error) {
  Conversation conversation;
  expect_answers(
      conversation,
      {{"no JSON", "{", error("null", "-32700", "line 1, byte 2: a key in double quotes is missing")},
       {"no JSON-RPC", R"({"id": 1, "method": "ping"})", error("1", "-32600", "'jsonrpc' must be '2.0'")},
       {"no object", "7", error("null", "-32600", "a message must be an object")},
       {"no method", R"({"jsonrpc": "2.0", "id": 1})", error("1", "-32600", "'method' must be text")},
       {"an id that is null", R"({"jsonrpc": "2.0", "id": null, "method": "ping"})",
        error("null", "-32600", "'id' must be text or an integer")},
       {"an id that no JSON could repeat", R"({"jsonrpc": "2.0", "id": NaN, "method": "ping"})",
        error("null", "-32600", "'id' must be text or an integer")},
       {"an unknown method", R"({"jsonrpc": "2.0", "id": 2, "method": "tools/cal"})",
        error("2", "-32601", "unknown method 'tools/cal'")},
       {"parameters that are not an object", R"({"jsonrpc": "2.0", "id": 3, "method": "ping", "params": [1]})",
        error("3", "-32602", "'params' must be an object")},
       {"a parameter of another kind", R"({"jsonrpc": "2.0", "id": 4, "method": "tools/call", "params": {"name": 1}})",
        error("4", "-32602", "'name' must be text")},
       {"a parameter left out", R"({"jsonrpc": "2.0", "id": 5, "method": "initialize"})",
        error("5", "-32602", "'protocolVersion' is missing")},
       {"a cursor that nobody handed out",
        R"({"jsonrpc": "2.0", "id": 6, "method": "tools/list", "params": {"cursor": "2"}})",
        error("6", "-32602", "there is one page of tools, and no cursor")},
       {"and is still there", ping, pong}});
}

TEST(RepoDaemonMessages, leave_without_answer_what_asks_for_none) {
  Conversation conversation;
  conversation.tell(R"({"jsonrpc": "2.0", "method": "notifications/initialized"})");
  conversation.tell(R"({"jsonrpc": "2.0", "method": "no such method"})");
  conversation.tell(R"({"jsonrpc": "2.0", "id": 9, "result": {}})");
  EXPECT_EQ(conversation.ask(ping), pong);
}

TEST(RepoDaemonMessages, agree_on_a_version_and_its_batches) {
  Conversation conversation;
  const std::string batch = "[" + std::string(ping) + R"(, {"jsonrpc": "2.0", "method": "x"}, 7])";
  const std::string batch_answer =
      "[" + std::string(pong) + ", " + error("null", "-32600", "a message must be an object") + "]";
  expect_answers(
      conversation,
      {{"an older version is the client's to choose", initialize("2025-03-26"), initialized("2025-03-26")},
       {"it has batches", batch, batch_answer},
       {"an empty one is none", "[]", error("null", "-32600", "a batch must have 1 to 50 messages")},
       {"an unknown version is answered with the newest", initialize("1999-01-01"), initialized("2025-06-18")},
       {"which has no batches", batch, error("null", "-32600", "version 2025-06-18 of the protocol has no batches")}});
}

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

TEST(RepoDaemonMessages, bound_what_a_call_can_cost) {
  Conversation conversation;
  std::string arguments = R"("limit": 5)";
  for (int number = 1; number < 200; ++number) {
    arguments += ", \"" + std::string(800, 'n') + std::to_string(number) + "\": 1";
  }
  EXPECT_TRUE(conversation.call("search", "{" + arguments + "}").ends_with("…"));
  EXPECT_EQ(conversation.call("search", "{" + arguments + ", \"query\": 1}"),
            "error: a call must not have more than 200 arguments");
}

TEST(RepoDaemonMessages, survive_what_is_meant_to_stop_it) {
  Conversation conversation;
  const std::string call = R"({"jsonrpc": "2.0", "id": 1, "method": "tools/call", "params": {"name": "search", )"
                           R"("arguments": {"query": )";
  const std::string lines[] = {
      std::string(100'000, '['),
      std::string(5 * 1024 * 1024, ' '),
      std::string("\xFF\xFE\0\x80", 4),
      "",
      call + R"("\ud800"}}})",
      call + "\"" + std::string(1'000'000, 'a') + "\"}}}",
      call + std::string(900, '[') + std::string(900, ']') + "}}}",
      call + R"("a", "limit": 1e999, "context_lines": -1e400}}})",
      call + R"("a", "path": ")" + std::string(20'000, '/') + std::string(20'000, 'a') + "\"}}}",
      call + R"("a", "path": ")" + std::string(30'000, '.') + "\"}}}",
      call + R"("a", "patterns": ")" + std::string(100, '*') + "a" + std::string(100, '*') + "b\"}}}",
  };
  for (const std::string& line : lines) {
    EXPECT_TRUE(conversation.ask(line).starts_with(R"({"jsonrpc": "2.0", "id": )")) << line.substr(0, 200);
  }
  EXPECT_EQ(conversation.ask(ping), pong);
}

TEST(RepoDaemonMessages, end_quietly_when_nobody_reads_the_answers) {
  const SourceTree tree;
  cli_test::Dialogue daemon({tree.root()});
  EXPECT_TRUE(daemon.say(std::string(ping) + "\n"));
  EXPECT_EQ(daemon.hear(), std::string(pong) + "\n");
  daemon.stop_listening();
  EXPECT_TRUE(daemon.say(std::string(ping) + "\n"));
  EXPECT_EQ(daemon.end(), 0);
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
