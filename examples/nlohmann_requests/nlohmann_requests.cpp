// SPDX-License-Identifier: MIT
#include <iostream>
#include <string>

#include "tool_binding/nlohmann/json.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_binding.hpp"
#include "tool_binding/typed_handler.hpp"

using namespace tool_binding;
using Json = nlohmann::ordered_json;

ArgumentMap find(std::string_view query, int limit) {
  return {{"query", query}, {"places", std::vector<Value>{"src/index.cpp:3", "src/index.hpp:10"}}, {"limit", limit}};
}

/// The answer to a request that the daemon holds in that library's values already.
Json answer(const Handlers& handlers, const Json& request) {
  try {
    const std::string tool = request.at("name");
    const NormalizedArguments admitted =
        normalize_arguments(tool, nlohmann_json::to_arguments(request.at("arguments")));
    const Handler& handler = handlers.at(tool);
    const KeywordArguments keywords = handler_kwargs(handler, bind_arguments(tool, admitted.arguments()), {});
    return {{"result", Json(handler.function(keywords))}, {"notes", admitted.notes()}};
  } catch (const ArgumentError& refusal) {
    return {{"error", refusal.message()}};
  }
}

int main() {
  const Handlers handlers = declare_tools(
      {{.tool = {.name = "find",
                 .params = {ParamSpec{.name = "query", .type = "string", .required = true},
                            ParamSpec{.name = "limit", .type = "integer", .maximum = 100, .default_ = 20}}},
        .handler = handler(find, argument<std::string_view>("query"), argument<int>("limit"))}});
  std::cout << answer(handlers, {{"name", "find"}, {"arguments", {{"query", "open"}, {"limit", "500"}}}}) << '\n'
            << answer(handlers, {{"name", "find"}, {"arguments", {{"limt", 5}}}}) << '\n';
}
