// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <latch>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_binding/server/server.hpp"

namespace tool_binding::server {

namespace {

constexpr const char* meta =
    R"("_meta": {"io.modelcontextprotocol/protocolVersion": "2026-07-28", "io.modelcontextprotocol/clientCapabilities": {}, "progressToken": 1})";

std::string request(const std::string& id, const std::string& method, const std::string& params) {
  return R"({"jsonrpc": "2.0", "id": )" + id + R"(, "method": ")" + method + R"(", "params": {)" + params + ", " +
         meta + "}}";
}

std::string call_of(const std::string& id, const std::string& tool) {
  return request(id, "tools/call", R"("name": ")" + tool + '"');
}

std::string cancelled(const std::string& id) {
  return R"({"jsonrpc": "2.0", "method": "notifications/cancelled", "params": {"requestId": )" + id + "}}";
}

/// A server with one tool, "try", without parameters.
template <class... Listed>
Server server_of(const Listed&... listed) {
  return Server({.name = "s", .version = "1"}, {{.tool = {.name = "try"}, .handler = handler(listed...)}});
}

/// What a handler keeps of its call.
struct Kept {
  std::latch has_begun{1};
  std::latch may_end{1};
  Call call;
};

}  // namespace

TEST(ServerSession, answers_from_several_threads_and_cancels_from_another) {
  Kept kept;
  const Server server = server_of(
      [&](Call& call) {
        kept.call = call;
        kept.has_begun.count_down();
        std::mutex mutex;
        std::unique_lock lock(mutex);
        std::condition_variable_any().wait(lock, call.stop_token(), [] { return false; });
        kept.may_end.wait();
        return "too late";
      },
      item<Call>("call"));
  std::vector<std::string> sent;
  Session session(server, [&](const std::string& message) { sent.push_back(message); });
  std::vector<std::string> answers = {"not empty"};
  std::jthread calling([&] { answers = session.answer(call_of("1", "try")); });
  kept.has_begun.wait();
  kept.call.progress(1);
  EXPECT_EQ(session.answer(request("2", "server/discover", R"("a": 1)")).size(), 1U);
  EXPECT_TRUE(session.answer(cancelled("1")).empty());
  kept.call.progress(2);
  kept.may_end.count_down();
  calling.join();
  EXPECT_TRUE(answers.empty());
  kept.call.progress(3);
  EXPECT_EQ(sent.size(), 1U) << "progress after the cancellation";
}

TEST(ServerSession, has_nobody_to_report_to_without_a_way) {
  const Server server = server_of(
      [](Call& call) {
        call.progress(1);
        call.log(LogLevel::emergency, "nobody hears this");
        return call.wants_progress() ? "wanted" : "not wanted";
      },
      item<Call>("call"));
  Session session(server);
  EXPECT_NE(session.answer(call_of("1", "try")).at(0).find("\"not wanted\""), std::string::npos);
  EXPECT_NE(session.answer(request("2", "subscriptions/listen", R"("notifications": {})")).at(0).find("-32601"),
            std::string::npos);
}

TEST(ServerSession, answers_its_subscriptions_when_it_ends) {
  const Server server = server_of([] { return "done"; });
  std::vector<std::string> sent;
  Session session(server, [&](const std::string& message) { sent.push_back(message); });
  EXPECT_TRUE(session.answer(request("7.0", "subscriptions/listen", R"("notifications": {})")).empty());
  session.end();
  ASSERT_EQ(sent.size(), 2U);
  EXPECT_TRUE(sent[1].starts_with(R"({"jsonrpc": "2.0", "id": 7.0, "result": )")) << sent[1];
}

TEST(ServerSession, bounds_the_log_of_a_call) {
  const Server server({.name = "s", .version = "1"},
                      {{.tool = {.name = "try"},
                        .handler = handler(
                            [](Call& call) {
                              for (int number = 0; number < 9; ++number) {
                                call.log(LogLevel::error, number);
                              }
                              return "done";
                            },
                            item<Call>("call"))}},
                      {.limits = {.logs = 3}});
  std::vector<std::string> sent;
  Session session(server, [&](const std::string& message) { sent.push_back(message); });
  static_cast<void>(session.answer(
      R"({"jsonrpc": "2.0", "id": 1, "method": "initialize", "params": {"protocolVersion": "2025-06-18"}})"));
  static_cast<void>(
      session.answer(R"({"jsonrpc": "2.0", "id": 2, "method": "tools/call", "params": {"name": "try"}})"));
  ASSERT_EQ(sent.size(), 4U);
  EXPECT_NE(sent[3].find("left out"), std::string::npos);
}

TEST(ServerSession, bounds_what_a_refusal_repeats) {
  const Server server = server_of([] { return "done"; });
  Session session(server);
  std::string arguments = R"("a": 1)";
  for (int number = 0; number < 200; ++number) {
    arguments += ", \"" + std::string(15'000, 'n') + std::to_string(number) + "\": 1";
  }
  const std::string message = request("1", "tools/call", R"("name": "try", "arguments": {)" + arguments + "}");
  EXPECT_LT(session.answer(message).at(0).size(), 2U * 160 * 1024 + 1000);
}

TEST(ServerSession, answers_each_call_of_a_batch_that_takes_too_long) {
  const Server server({.name = "s", .version = "1"},
                      {{.tool = {.name = "try"},
                        .handler = handler(
                            [](Call& call) {
                              std::mutex mutex;
                              std::unique_lock lock(mutex);
                              std::condition_variable_any().wait(lock, call.stop_token(), [] { return false; });
                              return "told";
                            },
                            item<Call>("call"))}},
                      {.limits = {.call_time = std::chrono::milliseconds(20)}});
  Session session(server);
  static_cast<void>(session.answer(
      R"({"jsonrpc": "2.0", "id": 1, "method": "initialize", "params": {"protocolVersion": "2025-03-26"}})"));
  const auto call = [](const std::string& id) {
    return R"({"jsonrpc": "2.0", "id": )" + id + R"(, "method": "tools/call", "params": {"name": "try"}})";
  };
  const auto late = [](const std::string& id) {
    return R"({"jsonrpc": "2.0", "id": )" + id +
           R"(, "result": {"content": [{"type": "text", "text": "try was cancelled: a call may take at most 20 ms"}], )"
           R"("isError": true}})";
  };
  EXPECT_EQ(session.answer("[" + call("2") + ", " + call("3") + "]"),
            std::vector{"[" + late("2") + ", " + late("3") + "]"});
}

/// What a daemon declares wrongly is said when its server is made.
TEST(ServerSession, is_not_begun_with_wrong_declarations) {
  const auto declared = [](Options options, const ToolHandler& tried) {
    const Server server({.name = "s", .version = "1"}, {{.tool = {.name = "try"}, .handler = tried}},
                        std::move(options));
  };
  const ToolHandler takes_text =
      handler([](std::string_view text) { return text; }, argument<std::string_view>("text"));
  EXPECT_THROW(declared({}, takes_text), RegistryError);
  EXPECT_THROW(declared({}, handler([](const int& root) { return root; }, item<const int>("root"))), RegistryError);
  const int number = 1;
  const KeywordArguments context = {{"call", KeywordArgument::context(number)}};
  EXPECT_THROW(declared({.context = context}, handler([](const Call&) { return "done"; }, item<const Call>("call"))),
               ValueError);
  ToolTable table;
  declared({.table = &table}, handler([] { return "done"; }));
  EXPECT_NE(table.find("try"), nullptr);
  EXPECT_THROW(declared({.table = &table}, handler([] { return "done"; })), RegistryError);
}

TEST(ServerSession, gives_a_call_under_the_handlers_own_name_for_it) {
  const Server server(
      {.name = "s", .version = "1"},
      {{.tool = {.name = "try", .params = {{.name = "call", .type = "string", .required = true}}},
        .handler = handler([](std::string_view call, const Call& own) { return own.is_cancelled() ? "" : call; },
                           argument<std::string_view>("call"), item<const Call>("its call"))}});
  Session session(server);
  const std::string answer =
      session.answer(request("1", "tools/call", R"("name": "try", "arguments": {"call": "an argument"})")).at(0);
  EXPECT_NE(answer.find("\"an argument\""), std::string::npos) << answer;
}

TEST(ServerSession, advertises_schemas_of_the_form_that_the_daemon_chooses) {
  const auto advertised = [](const Options& options) {
    const Server server({.name = "s", .version = "1"},
                        {{.tool = {.name = "try",
                                   .params = {{.name = "kind", .type = "string", .enum_ = {"file", "line"}},
                                              {.name = "limit", .type = "integer", .minimum = 1, .maximum = 100},
                                              {.name = "deep", .type = "boolean", .description = "Below it too."},
                                              {.name = "paths", .type = "array"}}},
                          .handler = handler([](const KeywordArguments&) { return "done"; }, rest())}},
                        options);
    const Value answer = json::read(Session(server).answer(request("1", "tools/list", R"("a": 1)")).at(0));
    const Value& tools = answer.mapping().at("result").mapping().at("tools");
    return json::write(tools.list()[0].mapping().at("inputSchema"));
  };
  EXPECT_EQ(advertised({}),
            R"({"type": "object", "properties": {"kind": {"type": "string", "enum": ["file", "line"]}, )"
            R"("limit": {"type": "integer", "minimum": 1, "maximum": 100}, )"
            R"("deep": {"type": "boolean", "description": "Below it too."}, )"
            R"("paths": {"type": "array", "items": {}}}, "additionalProperties": false})");
  EXPECT_EQ(advertised({.schemas = json::SchemaForm::open}),
            R"({"type": "object", "properties": )"
            R"({"kind": {"type": ["string", "number", "null"], "description": "One of: \"file\", \"line\"."}, )"
            R"("limit": {"type": ["integer", "string", "null"], "description": "From 1 to 100."}, )"
            R"("deep": {"type": ["boolean", "string", "integer", "null"], "description": "Below it too."}, )"
            R"("paths": {"type": ["array", "string", "null"], "items": {}}}})");
}

}  // namespace tool_binding::server
