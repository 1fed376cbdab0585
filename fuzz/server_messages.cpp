// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "choices.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/server/server.hpp"

/// Messages of one client, whole ones and broken ones. A request is answered once and under its id, nothing else is
/// answered under any, and every answer is JSON that any reader takes, on one line.
namespace tool_binding::fuzz {
namespace {

constexpr std::array<std::string_view, 12> ids = {"1", "2",    "\"1\"", "1.0", "1e2",  "-0",
                                                  "7", "null", "1.5",   "[]",  "true", "\"\\ud800\\n\""};
constexpr std::array<std::string_view, 10> methods = {"tools/call",
                                                      "tools/list",
                                                      "ping",
                                                      "initialize",
                                                      "logging/setLevel",
                                                      "server/discover",
                                                      "subscriptions/listen",
                                                      "notifications/cancelled",
                                                      "tools/cal",
                                                      "notifications/initialized"};
constexpr std::array<std::string_view, 16> members = {
    R"("name": "say")",
    R"("name": "sya")",
    R"("name": 5)",
    R"("arguments": {"text": "a", "count": "3"})",
    R"("arguments": {"txt": "\udc00", "count": 1e999})",
    R"("arguments": {"text": "NaN", "count": [], "call": {}})",
    R"("arguments": [1])",
    R"("_meta": {"progressToken": 1})",
    R"("_meta": {"io.modelcontextprotocol/protocolVersion": "2026-07-28", "io.modelcontextprotocol/clientCapabilities": {}})",
    R"("_meta": {"io.modelcontextprotocol/protocolVersion": "2026-07-29", "io.modelcontextprotocol/clientCapabilities": {}})",
    R"("_meta": {"io.modelcontextprotocol/clientCapabilities": 1})",
    R"("protocolVersion": "2025-03-26")",
    R"("protocolVersion": "2025-06-18")",
    R"("requestId": 1, "level": "debug")",
    R"("notifications": {})",
    R"("cursor": "")"};

std::string say(std::string_view text, int count, server::Call& call) {
  call.progress(1, 2);
  call.log(server::LogLevel::error, text);
  call.progress(2, 2);
  return count > 5 ? throw ArgumentError("too many") : std::string(text);
}

const server::Server& served() {
  static const server::Server server(
      {.name = "s", .version = "1"},
      {{.tool = {.name = "say",
                 .params = {{.name = "text", .type = "string", .synonyms = {"words"}, .default_ = "\xED\xA0\x80"},
                            {.name = "count", .type = "integer", .maximum = 9, .default_ = 1}}},
        .handler =
            handler(say, argument<std::string_view>("text"), argument<int>("count"), item<server::Call>("call"))}},
      {.limits = {.message_bytes = 2000, .batch_messages = 3, .calls = 3, .logs = 1, .progress_interval = {}}});
  return server;
}

std::string make_message(Choices& choices) {
  std::string message = R"({"jsonrpc": "2.0")";
  if (choices.below(4) != 0) {
    message.append(R"(, "id": )").append(choices.one_of(ids));
  }
  message.append(R"(, "method": ")").append(choices.one_of(methods)).append(R"(", "params": {)");
  const std::size_t count = choices.below(4);
  for (std::size_t number = 0; number < count; ++number) {
    message.append(number == 0 ? "" : ", ").append(choices.one_of(members));
  }
  return message.append("}}");
}

std::string make_line(Choices& choices) {
  switch (choices.below(8)) {
    case 0:
      return std::string(choices.bytes(60));
    case 1: {  // a message that a few bytes are wrong in
      std::string broken = make_message(choices);
      const std::string_view bytes = choices.bytes(4);
      broken.replace(std::min<std::size_t>(choices.byte(), broken.size()), bytes.size(), bytes);
      return broken;
    }
    case 2: {
      std::string batch = "[";
      for (std::size_t left = choices.below(5); left > 0; --left) {
        batch.append(make_message(choices)).append(left > 1 ? ", " : "");
      }
      return batch.append("]");
    }
    default:
      return make_message(choices);
  }
}

bool is_id(const Value& id) { return id.is_text() || id.is_integer() || (id.is_floating() && id != Value(1.5)); }

/// The ids that must be answered, as JSON; those of equal spelling as often as they stand there.
std::vector<std::string> asked_for(const Value& message) {
  std::vector<std::string> asked;
  const Value batch[] = {message};
  for (const Value& one : message.is_list() ? message.list() : std::span<const Value>(batch)) {
    const ArgumentMap none;
    const ArgumentMap& found = one.is_mapping() ? one.mapping() : none;
    const Value* const id = found.find("id");
    const bool is_response = !found.contains("method") && (found.contains("result") || found.contains("error"));
    if (id != nullptr && is_id(*id) && !is_response) {
      asked.push_back(id->is_text() ? "text" : json::write(*id));
    }
  }
  std::sort(asked.begin(), asked.end());
  return asked;
}

/// The value of a message that any reader of JSON takes.
Value sendable(const std::string& text) {
  require(text.find('\n') == std::string::npos, "a message is one line", text);
  require(text.find("\\ud8") == std::string::npos || text.find("id\": \"\\ud8") != std::string::npos ||
              text.find("subscriptionId") != std::string::npos,
          "no half of a pair but in an id as it was sent", text);
  require(text.find(": NaN") == std::string::npos && text.find(": Infinity") == std::string::npos, "no bare word",
          text);
  return json::read(text);
}

std::vector<std::string> answered(const std::vector<std::string>& answers) {
  std::vector<std::string> ids_of_answers;
  for (const std::string& text : answers) {
    const Value message = sendable(text);
    const Value batch[] = {message};
    for (const Value& one : message.is_list() ? message.list() : std::span<const Value>(batch)) {
      const ArgumentMap& found = one.mapping();
      require(found.contains("result") != found.contains("error"), "a result or an error", text);
      if (const Value* const id = found.find("id"); id != nullptr && !id->is_null()) {
        ids_of_answers.push_back(id->is_text() ? "text" : json::write(*id));
      }
    }
  }
  std::sort(ids_of_answers.begin(), ids_of_answers.end());
  return ids_of_answers;
}

/// Not a line that is too long or has a number that is not JSON, which is refused as a whole, nor a subscription, which
/// is answered at the end.
bool is_compared(std::string_view line) {
  constexpr std::array<std::string_view, 3> words = {"NaN", "Infinity", "listen"};
  return line.size() <= 2000 && std::none_of(words.begin(), words.end(), [&](std::string_view word) {
           return line.find(word) != std::string_view::npos;
         });
}

void check(Choices choices) {
  server::Session session(served(), [](const std::string& message) { static_cast<void>(sendable(message)); });
  while (!choices.empty()) {
    const std::string line = make_line(choices);
    const std::vector<std::string> found = answered(session.answer(line));
    try {
      const Value message = json::read(line);
      require(!is_compared(line) || found == asked_for(message), "each request is answered once", line);
    } catch (const json::ParseError&) {
      require(found.empty(), "what is not JSON has no id", line);
    }
  }
  session.end();
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
