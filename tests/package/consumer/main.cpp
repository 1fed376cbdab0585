// SPDX-License-Identifier: MIT
#include <cstdio>
#include <sstream>
#include <string>

#include "tool_binding/tool_binding.hpp"
#ifdef WITH_JSON
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/json/registry_file.hpp"
#endif
#ifdef WITH_REPORT
#include "tool_binding/report/report.hpp"
#endif
#ifdef WITH_SERVER
#include "tool_binding/server/server.hpp"
#endif
#ifdef WITH_NLOHMANN
#include "tool_binding/nlohmann/json.hpp"
#endif

/// What only holds across a library's boundary: one `TOOLS`, errors that are caught by their own types, context items
/// whose type both sides agree on.
int main() {
  using namespace tool_binding;
#ifdef WITH_SERVER
  const server::Server served({.name = "consumer", .version = "1"},
                              {{.tool = {.name = "search"},
                                .handler = handler([](server::Call& call) { return call.is_cancelled() ? "" : "done"; },
                                                   item<server::Call>("call"))}});
  server::Session session(served);
  static_cast<void>(session.answer(
      R"({"jsonrpc": "2.0", "id": 1, "method": "initialize", "params": {"protocolVersion": "2025-06-18"}})"));
  const std::string answer =
      session.answer(R"({"jsonrpc": "2.0", "id": 2, "method": "tools/call", "params": {"name": "search"}})").at(0);
  if (answer.find("\"done\"") == std::string::npos) {
    return std::puts(answer.c_str()) >= 0 ? 1 : 2;
  }
#endif
#ifdef WITH_JSON
  TOOLS.add(json::read_registry(R"({"tools": [{"name": "search", "params": [{"name": "limit", "type": "integer"}]}]})")
                .front()
                .tool);
  try {
    static_cast<void>(json::read_registry("{"));
    return std::puts("a registry that is no JSON was read") >= 0 ? 1 : 2;
  } catch (const json::ParseError&) {
  }
#else
  TOOLS.add({.name = "search", .params = {{.name = "limit", .type = "integer"}}});
#endif
#ifdef WITH_REPORT
  if (report::report_of(report::report_value(report::Report(TOOLS))).tools.size() != 1) {
    return std::puts("a report lost its tool") >= 0 ? 1 : 2;
  }
#endif
  try {
#ifdef WITH_NLOHMANN
    const ArgumentMap unknown = nlohmann_json::to_arguments(nlohmann::json::parse(R"({"limt": 5})"));
#else
    const ArgumentMap unknown = {{"limt", 5}};
#endif
    static_cast<void>(normalize_arguments("search", unknown));
    return std::puts("an unknown parameter was admitted") >= 0 ? 1 : 2;
  } catch (const ArgumentError& error) {
    std::puts(error.findings().front().message().c_str());
  }
  const Handler handler{Signature::named("repository", "limit"), {}};
  std::string repository = "atlas";
  const KeywordArguments context{{"repository", KeywordArgument::context(repository)}};
  const auto admitted = normalize_arguments("search", ArgumentMap{{"limit", "5"}});
  const auto keywords = handler_kwargs(handler, bind_arguments("search", admitted.arguments()), context);
  std::ostringstream written;
  written << Value(5);
  const bool right = written.str() == "5" && keywords.find("repository")->item<std::string>() == "atlas" &&
                     keywords.find("limit")->value() == Value(5) && Integer(5) < Integer::from_decimal("50");
  return right ? 0 : 1;
}
