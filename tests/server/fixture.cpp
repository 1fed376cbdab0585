// SPDX-License-Identifier: MIT
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

#include "tool_binding/server/server.hpp"

/// A server whose tools show what tools can do: what its tests talk with. `fixture [WORKERS [MILLISECONDS]]`, which one
/// call may take.
namespace {

using namespace tool_binding;
using namespace tool_binding::server;

ParamSpec text_param() { return {.name = "text", .type = "string", .synonyms = {"words"}, .default_ = ""}; }

Answer show(std::string_view kind) {
  if (kind == "blocks") {
    return std::vector{
        Content::text("a text"),
        Content::image("\x89PNG", "image/png"),
        Content::audio("RIFF\xFF", "audio/wav"),
        Content::link({.uri = "file:///a", .name = "a", .title = "A", .mime_type = "text/plain", .bytes = 5}),
        Content::resource("file:///b", "of b", "text/plain"),
        Content::blob("file:///c", "\x01\x02")};
  }
  if (kind == "error") {
    return Answer::error("it cannot be shown: show 'blocks'");
  }
  if (kind == "failure") {
    throw std::runtime_error("the disk is full");
  }
  if (kind == "no exception") {
    throw 7;
  }
  if (kind == "refusal") {
    throw ArgumentError("'kind' names nothing that is here");
  }
  if (kind == "number") {
    return 5;
  }
  return Answer("half of a pair: \xED\xA0\x80, a lone byte: \xFF, and a \\ud800");
}

Answer sum(double left, std::optional<double> right) {
  if (!right) {
    return "no structured value";
  }
  return Answer::structured(ArgumentMap{{"sum", left + *right}});
}

Value keywords_of(const KeywordArguments& keywords) {
  ArgumentMap shown;
  for (const auto& [name, keyword] : keywords) {
    shown.set(name, keyword.is_context() ? Value("context") : keyword.value());
  }
  return shown;
}

std::string report(std::string_view text, Call& call) {
  call.log(LogLevel::debug, "not to be seen at first");
  call.log(LogLevel::warning, ArgumentMap{{"text", text}}, "report");
  call.progress(1, 3, "one");
  call.progress(1, 3, "the same");
  call.progress(2, 3, "too soon");
  call.progress(std::numeric_limits<double>::quiet_NaN());
  call.progress(3, 3, "three");
  return call.wants_progress() ? "said" : "nobody asked";
}

/// Waits for its end, or so many milliseconds.
std::string wait(std::int64_t milliseconds, bool stubborn, Call& call) {
  call.progress(1, 2, "waiting");
  std::mutex mutex;
  std::condition_variable_any never;
  std::unique_lock lock(mutex);
  const auto time = std::chrono::milliseconds(milliseconds);
  if (stubborn) {
    std::this_thread::sleep_for(time);
  } else {
    never.wait_for(lock, call.stop_token(), time, [] { return false; });
  }
  return call.is_cancelled() ? "cancelled" : "waited";
}

std::vector<ServedTool> tools() {
  const Value sum_schema = ArgumentMap{{"type", "object"},
                                       {"properties", ArgumentMap{{"sum", ArgumentMap{{"type", "number"}}}}},
                                       {"required", std::vector<Value>{"sum"}}};
  const ParamSpec number = {.name = "left", .type = "number", .required = true};
  return {{.tool = {.name = "show", .params = {{.name = "kind", .type = "string", .default_ = "odd text"}}},
           .handler = handler(show, argument<std::string_view>("kind")),
           .annotations = {.read_only = true, .destructive = false, .idempotent = true, .open_world = false}},
          {.tool = {.name = "sum", .params = {number, {.name = "right", .type = "number", .maximum = 100}}},
           .handler = handler(sum, argument<double>("left"), argument<std::optional<double>>("right")),
           .title = "Sum",
           .output_schema = sum_schema},
          {.tool = {.name = "keywords", .params = {text_param()}}, .handler = handler(keywords_of, rest())},
          {.tool = {.name = "plain", .params = {text_param()}},
           .handler = Handler{.signature = Signature::named("text", "root"), .function = keywords_of}},
          {.tool = {.name = "report", .params = {text_param()}},
           .handler = handler(report, argument<std::string_view>("text"), item<Call>("call"))},
          {.tool = {.name = "wait",
                    .params = {{.name = "milliseconds", .type = "integer", .default_ = 20'000},
                               {.name = "stubborn", .type = "boolean", .default_ = false}}},
           .handler =
               handler(wait, argument<std::int64_t>("milliseconds"), argument<bool>("stubborn"), item<Call>("call"))}};
}

}  // namespace

int main(int count, char** words) {
  const std::string root = "/srv";
  const Server server({.name = "fixture", .version = "1.2", .title = "The fixture", .instructions = "Call the tools."},
                      tools(),
                      {.workers = count > 1 ? std::stoul(words[1]) : 0,
                       .limits = {.message_bytes = 100'000,
                                  .batch_messages = 4,
                                  .calls = 4,
                                  .call_time = std::chrono::milliseconds(count > 2 ? std::stol(words[2]) : 0)},
                       .context = {{"root", KeywordArgument::context(root)}}});
  const std::size_t left = server.serve();
  std::_Exit(left == 0 ? 0 : 3);
}
