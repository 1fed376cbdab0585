// SPDX-License-Identifier: MIT
#include "conversation.hpp"

#include <gtest/gtest.h>

#include "tool_binding/json/reader.hpp"
#include "tool_binding/value.hpp"

namespace repo_daemon_test {

namespace {

namespace tb = tool_binding;

const tb::Value& member(const tb::Value& value, const char* name) { return *value.mapping().find(name); }

std::string texts_of(const tb::Value& answer) {
  if (answer.mapping().contains("error")) {
    return "error: " + std::string(member(member(answer, "error"), "message").text());
  }
  const tb::Value& result = member(answer, "result");
  std::string texts = member(result, "isError").boolean() ? "refused: " : "";
  for (const tb::Value& content : member(result, "content").list()) {
    texts.append(texts.empty() || texts == "refused: " ? "" : "\n").append(member(content, "text").text());
  }
  return texts;
}

std::string with_root(std::string text, const std::string& root) {
  for (std::size_t place = 0; (place = text.find("ROOT", place)) != std::string::npos; place += root.size()) {
    text.replace(place, 4, root);
  }
  return text;
}

}  // namespace

Conversation::Conversation() : daemon_({tree_.root()}) {
  static_cast<void>(
      ask(R"({"jsonrpc": "2.0", "id": 0, "method": "initialize", "params": {"protocolVersion": "2025-06-18"}})"));
}

Conversation::~Conversation() { EXPECT_EQ(daemon_.end(), 0) << "the daemon did not end as it should"; }

void Conversation::tell(const std::string& line) { EXPECT_TRUE(daemon_.say(line + "\n")); }

std::string Conversation::ask(const std::string& line) {
  tell(line);
  std::string answer = daemon_.hear();
  if (answer.ends_with('\n')) {
    answer.pop_back();
  }
  return answer;
}

std::string Conversation::call(const std::string& tool, const std::string& arguments) {
  const std::string answer = ask(R"({"jsonrpc": "2.0", "id": 1, "method": "tools/call", "params": {"name": ")" + tool +
                                 R"(", "arguments": )" + arguments + "}}");
  try {
    return texts_of(tb::json::read(answer));
  } catch (const tb::json::ParseError&) {
    return "no answer: " + answer;
  }
}

void expect_calls(const std::vector<CallRow>& rows) {
  Conversation conversation;
  const std::string root = conversation.tree().root();
  for (const CallRow& row : rows) {
    EXPECT_EQ(conversation.call(row.tool, with_root(row.arguments, root)), with_root(row.expected, root)) << row.shows;
  }
}

}  // namespace repo_daemon_test
