// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <simdjson.h>

#include <stdexcept>
#include <string>
#include <thread>

#include "allocations.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "walk.hpp"

/// What a request costs: its text read by simdjson alone, each stage of its walk, the whole walk, and a refusal.
namespace tool_binding::bench {

namespace {

const Walk& walk() {
  static const Walk the_walk;
  return the_walk;
}

/// Runs `act` over and over, and counts what it takes from the heap.
template <class Act>
void measure(benchmark::State& state, const Act& act) {
  const std::size_t before = allocations();
  for (auto _ : state) {
    benchmark::DoNotOptimize(act());
  }
  state.counters["allocations"] = static_cast<double>(allocations() - before) / static_cast<double>(state.iterations());
}

void dom(benchmark::State& state, const Request& request) {
  simdjson::dom::parser parser;
  const simdjson::padded_string text(request.text);
  measure(state, [&] { return parser.parse(text).error(); });
}

void admit(benchmark::State& state, const Request& request) {
  const Value arguments = json::read(request.text);
  measure(state, [&] { return normalize_arguments(walk().tool, arguments.mapping()); });
}

void bind(benchmark::State& state, const Request& request) {
  const NormalizedArguments admitted = normalize_arguments(walk().tool, json::read(request.text).mapping());
  measure(state, [&] { return bind_arguments(walk().tool, admitted.arguments()); });
}

void keywords(benchmark::State& state, const Request& request) {
  const NormalizedArguments admitted = normalize_arguments(walk().tool, json::read(request.text).mapping());
  const ArgumentMap bound = bind_arguments(walk().tool, admitted.arguments());
  measure(state, [&] { return handler_kwargs(walk().handler, bound, walk().context); });
}

void whole(benchmark::State& state, const Request& request) {
  const Value arguments = json::read(request.text);
  measure(state, [&] { return walk()(arguments.mapping()); });
}

/// The same in a process that has had a second thread, whose counts of references are atomic.
void whole_threaded(benchmark::State& state, const Request& request) {
  std::atomic<bool> done = false;
  std::thread other([&] { done.wait(false); });
  whole(state, request);
  done = true;
  done.notify_one();
  other.join();
}

void refuse(benchmark::State& state, const Request& request) {
  const Value arguments = json::read(request.text);
  measure(state, [&] {
    try {
      static_cast<void>(walk()(arguments.mapping()));
    } catch (const ArgumentError& error) {
      return error.what()[0];
    }
    return '\0';
  });
}

void bare_throw(benchmark::State& state, const Request& request) {
  const std::string text = walk().refusal(json::read(request.text).mapping());
  measure(state, [&] {
    try {
      throw std::runtime_error(text);
    } catch (const std::runtime_error& error) {
      return error.what()[0];
    }
  });
}

void read(benchmark::State& state, const Request& request) {
  json::Reader reader;
  measure(state, [&] { return reader.read(request.text); });
}

void write(benchmark::State& state, const Request& request) {
  const Value value = json::read(request.text);
  json::Writer writer;
  measure(state, [&] {
    writer.clear();
    writer.write(value);
    return writer.text().size();
  });
}

void add(const std::string& what, const Request& request, void (*run)(benchmark::State&, const Request&)) {
  benchmark::RegisterBenchmark((what + '/' + std::string(request.name)).c_str(),
                               [=](benchmark::State& state) { run(state, request); });
}

void add_all() {
  const auto& [a, b, c] = requests;
  for (const Request& request : {a, b, c}) {
    add("dom", request, dom);
    add("read", request, read);
    add("write", request, write);
  }
  for (const Request& request : {a, b}) {
    add("admit", request, admit);
    add("bind", request, bind);
    add("keywords", request, keywords);
    add("whole", request, whole);
    add("whole, threads", request, whole_threaded);
  }
  add("throw", c, bare_throw);
  add("refuse", c, refuse);
}

}  // namespace

}  // namespace tool_binding::bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  tool_binding::bench::add_all();
  benchmark::RunSpecifiedBenchmarks();
}
