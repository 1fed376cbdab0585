// SPDX-License-Identifier: MIT
#include <iostream>
#include <string>

#include "tool_binding/json/reader.hpp"
#include "walk.hpp"

/// Walks one request, "A", "B" or "C", as often as it is told, for callgrind to count.
int main(int argc, char** argv) {
  using namespace tool_binding;
  const bench::Walk walk;
  const std::string name = argc == 3 ? argv[1] : "";
  for (const bench::Request& request : bench::requests) {
    if (request.name != name) {
      continue;
    }
    const Value arguments = json::read(request.text);
    std::size_t sum = 0;
    for (int left = std::stoi(argv[2]); left > 0; --left) {
      sum += name == "C" ? walk.refusal(arguments.mapping()).size() : walk(arguments.mapping()).size();
    }
    std::cout << sum << '\n';
    return 0;
  }
  std::cerr << "usage: count_instructions A|B|C TIMES\n";
  return 2;
}
