// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tool_binding/tool_binding.hpp"

/// How the cost of a request grows with what is declared and with what is sent.
namespace tool_binding::bench {

namespace {

std::string numbered(const char* stem, std::int64_t number) { return stem + std::to_string(number); }

/// Admits, binds and makes keywords; a request that is refused ends with its refusal.
std::size_t walk(const ToolSpec& tool, const Handler& handler, const ArgumentMap& arguments) {
  try {
    return handler_kwargs(handler, bind_arguments(tool, normalize_arguments(tool, arguments).arguments()), {}).size();
  } catch (const ArgumentError& error) {
    return std::string_view(error.what()).size();
  }
}

ToolDeclaration declaration(std::int64_t params, const char* type) {
  ToolDeclaration declared = {.name = "grown"};
  for (std::int64_t place = 0; place < params; ++place) {
    declared.params.push_back({.name = numbered("parameter_", place), .type = type});
  }
  return declared;
}

/// A request that gives every one of `state.range(0)` parameters.
void parameters(benchmark::State& state) {
  const ToolSpec tool(declaration(state.range(0), "integer"));
  std::vector<Parameter> parameters;
  ArgumentMap arguments;
  for (const Text& name : tool.param_names()) {
    parameters.push_back({name});
    arguments.append(name, 1);
  }
  const Handler handler = {.signature = {.parameters = std::move(parameters)}, .function = {}};
  for (auto _ : state) {
    benchmark::DoNotOptimize(walk(tool, handler, arguments));
  }
}

/// A request that gives one parameter of type `type` what `value` makes for `state.range(0)`.
void one_value(benchmark::State& state, const char* type, const std::function<Value(std::size_t)>& value) {
  const ToolSpec tool(declaration(1, type));
  const ArgumentMap arguments = {{"parameter_0", value(static_cast<std::size_t>(state.range(0)))}};
  for (auto _ : state) {
    benchmark::DoNotOptimize(walk(tool, {}, arguments));
  }
}

Value text(std::size_t size) { return std::string(size, 'a'); }
Value numeral(std::size_t digits) { return std::string(digits, '7'); }
Value numbers(std::size_t count) { return std::vector<Value>(count, Value(7)); }

/// Names that a tool does not know: near none of its own.
std::string unknown(std::int64_t number) { return numbered("zzz", number); }

/// Names of 42 bytes that are alike but for the order of pairs whose sums are equal: one row of a table whose hash adds
/// or multiplies byte by byte.
std::string alike(std::int64_t number) {
  std::string name = "collides";
  for (int bit = 0; bit < 17; ++bit) {
    name += ((number >> bit) & 1) != 0 ? "Aa" : "BB";
  }
  return name;
}

void names(benchmark::State& state, std::string (*name)(std::int64_t)) {
  const ToolSpec tool(declaration(2, "integer"));
  ArgumentMap arguments;
  for (std::int64_t number = 0; number < state.range(0); ++number) {
    arguments.set(name(number), number);
  }
  for (auto _ : state) {
    ArgumentMap received;
    for (const auto& [sent, value] : arguments) {
      received.set(sent, value);
    }
    benchmark::DoNotOptimize(walk(tool, {}, received));
  }
}

BENCHMARK(parameters)->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK_CAPTURE(one_value, text, "string", text)->Arg(1024)->Arg(10 * 1024 * 1024);
BENCHMARK_CAPTURE(one_value, numeral, "integer", numeral)->Arg(500'000)->Arg(1'000'000);
BENCHMARK_CAPTURE(one_value, list, "array", numbers)->Arg(500'000)->Arg(1'000'000);
BENCHMARK_CAPTURE(names, unknown, unknown)->Arg(50'000)->Arg(100'000);
BENCHMARK_CAPTURE(names, colliding, alike)->Arg(50'000)->Arg(100'000);

}  // namespace

}  // namespace tool_binding::bench

BENCHMARK_MAIN();
