// SPDX-License-Identifier: MIT
#include <array>
#include <iostream>
#include <string>
#include <string_view>

#include "search_tool.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/server/server.hpp"

/// Does one thing as often as it is told, for callgrind to count: the answer to a call whose handler does nothing
/// ("answer A"), or the reading of its line alone ("read A").
int main(int argc, char** argv) {
  using namespace tool_binding;
  const std::string_view what = argc == 4 ? argv[1] : "";
  const bench::Request* found = nullptr;
  for (const bench::Request& request : bench::requests) {
    found = argc == 4 && request.name == argv[2] ? &request : found;
  }
  if (found == nullptr || (what != "answer" && what != "read")) {
    std::cerr << "usage: count_server answer|read A|B|C TIMES\n";
    return 2;
  }
  const std::string line =
      R"({"jsonrpc": "2.0", "id": 17, "method": "tools/call", "params": {"name": "search", "arguments": )" +
      std::string(found->text) + "}}";
  Handler handler = bench::search_handler();
  handler.function = [](const KeywordArguments&) { return Value("done"); };
  const server::Server server({.name = "bench", .version = "1"},
                              {{.tool = bench::search_declaration(), .handler = std::move(handler)}},
                              {.context = bench::daemon_context()});
  server::Session session(server);
  std::size_t sum =
      session
          .answer(R"({"jsonrpc": "2.0", "id": 1, "method": "initialize", "params": {"protocolVersion": "2025-06-18"}})")
          .size();
  json::Reader reader;
  for (int times = std::stoi(argv[3]); times > 0; --times) {
    sum += what == "read" ? reader.read(line).mapping().size() : session.answer(line).at(0).size();
  }
  std::cout << sum << '\n';
}
