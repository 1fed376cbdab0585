// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <thread>

#include "choices.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/server/server.hpp"

/// A client that calls, cancels and asks while calls run on workers, and then ends its input. However that interleaves,
/// each call is answered once, unless it was cancelled; what a call reports comes before its answer; and all ends.
namespace tool_binding::fuzz {
namespace {

constexpr std::size_t most_messages = 40;

/// Takes so many turns of reporting; without any, waits to be stopped.
std::string work(int turns, server::Call& call) {
  for (int turn = 0; turn < turns; ++turn) {
    call.progress(turn + 1);
    std::this_thread::yield();
  }
  if (turns == 0) {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait(lock, call.stop_token(), [] { return false; });
  }
  return "done";
}

server::Server served(std::size_t workers) {
  return {{.name = "s", .version = "1"},
          {{.tool = {.name = "work", .params = {{.name = "turns", .type = "integer", .default_ = 1}}},
            .handler = handler(work, argument<int>("turns"), item<server::Call>("call"))}},
          {.workers = workers,
           .limits = {.calls = most_messages,
                      .progress_interval = {},
                      .finishing = std::chrono::milliseconds(1),
                      .stopping = std::chrono::seconds(50)}}};
}

struct Sent {
  std::string text =
      R"({"jsonrpc": "2.0", "id": 0, "method": "initialize", "params": {"protocolVersion": "2025-06-18"}})"
      "\n";
  std::set<std::int64_t> asked = {0};
  std::set<std::int64_t> cancelled;
};

Sent make_input(Choices& choices, bool may_wait) {
  Sent sent;
  for (std::int64_t number = 1; !choices.empty() && sent.asked.size() < most_messages; ++number) {
    const std::string id = std::to_string(number);
    switch (const std::size_t kind = choices.below(4)) {
      case 0: {
        const std::int64_t target = static_cast<std::int64_t>(choices.below(static_cast<std::size_t>(number))) + 1;
        sent.cancelled.insert(target);
        sent.text += R"({"jsonrpc": "2.0", "method": "notifications/cancelled", "params": {"requestId": )" +
                     std::to_string(target) + "}}\n";
        break;
      }
      case 1:
        sent.asked.insert(number);
        sent.text += R"({"jsonrpc": "2.0", "id": )" + id + R"(, "method": "ping"})" + "\n";
        break;
      default:
        sent.asked.insert(number);
        sent.text += R"({"jsonrpc": "2.0", "id": )" + id + R"(, "method": "tools/call", "params": {"name": "work", )" +
                     R"("arguments": {"turns": )" + std::to_string(kind == 2 && may_wait ? 0 : choices.below(4) + 1) +
                     R"(}, "_meta": {"progressToken": )" + id + "}}}\n";
    }
  }
  return sent;
}

/// Sends all of it and returns all that comes back.
std::string talk(const server::Server& server, const std::string& text) {
  int to_server[2];
  int from_server[2];
  require(pipe(to_server) == 0 && pipe(from_server) == 0, "there are pipes");
  std::jthread serving([&] {
    const std::size_t left = server.serve(to_server[0], from_server[1]);
    require(left == 0, "every call ends");
    close(to_server[0]);
    close(from_server[1]);
  });
  std::jthread sending([&] {
    require(write(to_server[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()), "all is sent");
    close(to_server[1]);
  });
  std::string answers;
  char bytes[4096];
  ssize_t count = 0;
  do {
    count = read(from_server[0], bytes, sizeof bytes);
    answers.append(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  } while (count > 0 || (count < 0 && errno == EINTR));  // the fuzzer's own alarm interrupts it
  close(from_server[0]);
  return answers;
}

void check_answers(const Sent& sent, const std::string& answers) {
  std::set<std::int64_t> answered;
  std::map<std::int64_t, double> done;
  for (std::size_t begin = 0; begin < answers.size();) {
    const std::size_t end = answers.find('\n', begin);
    require(end != std::string::npos, "each message is a whole line", answers.substr(begin));
    const Value message = json::read(std::string_view(answers).substr(begin, end - begin));
    begin = end + 1;
    if (const Value* const id = message.mapping().find("id"); id != nullptr) {
      require(answered.insert(id->to_int64().value()).second, "an answer comes once", answers);
      continue;
    }
    const ArgumentMap& progress = message.mapping().find("params")->mapping();
    const std::int64_t token = progress.find("progressToken")->to_int64().value();
    const double now = progress.find("progress")->floating();
    require(!answered.contains(token) && now > done[token], "progress rises, and ends with the answer", answers);
    done[token] = now;
  }
  for (const std::int64_t id : sent.asked) {
    require(answered.contains(id) || sent.cancelled.contains(id), "what is not cancelled is answered", answers);
  }
  for (const std::int64_t id : answered) {
    require(sent.asked.contains(id), "only what is asked is answered", answers);
  }
}

void check(Choices choices) {
  const std::size_t workers = choices.below(4);
  const Sent sent = make_input(choices, workers > 0);
  check_answers(sent, talk(served(workers), sent.text));
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
