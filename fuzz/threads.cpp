// SPDX-License-Identifier: MIT
#include <array>
#include <latch>
#include <thread>

#include "requests.hpp"
#include "support/one_line.hpp"

/// Eight threads at once over one registry, one shared request and one large shared map, whose index is made by
/// whichever searches first, and each over requests of its own. Their answers are those of one thread.
namespace tool_binding::fuzz {
namespace {

constexpr std::size_t thread_count = 8;
constexpr std::size_t large = 100;

/// A map that was never searched.
ArgumentMap large_map(const ArgumentMap& request) {
  ArgumentMap map;
  for (std::size_t number = 0; number < large; ++number) {
    map.set("name " + std::to_string(number), static_cast<std::int64_t>(number));
  }
  for (const auto& [name, value] : request) {
    map.set(name, value);
  }
  const ArgumentMap& searched = map;
  return ArgumentMap(searched);  // a copy makes an index of its own
}

std::string answer(const ToolSpec& tool, const ArgumentMap& request) {
  return outcome_of([&] { return normalize_arguments(tool, request); }) + one_line(bind_arguments(tool, request));
}

/// A search makes the index of a large map; `part` takes a thread's own way through it.
std::string search(const ArgumentMap& map, std::size_t part) {
  std::string found;
  for (std::size_t number = part; number < large; number += thread_count) {
    found += one_line(*map.find("name " + std::to_string(number)));
  }
  const ArgumentMap copy = map;
  return found + one_line(Value(copy));
}

void check(Choices choices) {
  const ToolDeclaration declared = make_tool(choices);
  const ToolSpec tool(declared);
  std::array<ArgumentMap, thread_count> requests;
  for (ArgumentMap& request : requests) {
    const std::string_view part = choices.bytes(64);
    Choices own(reinterpret_cast<const std::uint8_t*>(part.data()), part.size());
    request = make_request(own, declared);
  }
  const ArgumentMap shared = large_map(requests[0]);
  const auto all_of = [&](std::size_t part, const ArgumentMap& map) {
    return answer(tool, requests[part]) + answer(tool, requests[0]) + search(map, part) + answer(tool, map);
  };
  std::array<std::string, thread_count> answers;
  {
    std::latch all_started(thread_count);
    std::array<std::jthread, thread_count> threads;
    for (std::size_t part = 0; part < thread_count; ++part) {
      threads[part] = std::jthread([&, part] {
        all_started.arrive_and_wait();
        answers[part] = all_of(part, shared);
      });
    }
  }
  const ArgumentMap unshared = large_map(requests[0]);
  for (std::size_t part = 0; part < thread_count; ++part) {
    require(answers[part] == all_of(part, unshared), "eight threads answer as one does", answers[part]);
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
