// SPDX-License-Identifier: MIT
#include <iostream>
#include <string>

#include "tool_binding/call.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_binding/typed_handler.hpp"

using namespace tool_binding;

std::string search(std::string_view query, int limit, const std::string& repository) {
  return "at most " + std::to_string(limit) + " places in " + repository + " with '" + std::string(query) + "'";
}

int main() {
  const std::string repository = "atlas";
  const KeywordArguments context = {{"repository", KeywordArgument::context(repository)}};
  const Handlers handlers = declare_tools(
      {RegistryEntry{
          .tool = {.name = "search",
                   .params = {ParamSpec{.name = "query", .type = "string", .synonyms = {"q"}, .required = true},
                              ParamSpec{
                                  .name = "limit", .type = "integer", .minimum = 1, .maximum = 100, .default_ = 20}}},
          .handler = handler(search, argument<std::string_view>("query"), argument<int>("limit"),
                             item<const std::string>("repository"))}},
      context);
  const Handler& answering = handlers.at("search");
  for (const ArgumentMap& sent : {ArgumentMap{{"q", "open_index"}, {"limit", "500"}}, ArgumentMap{{"limt", 5}}}) {
    const PreparedCall call = prepare_call("search", answering, sent, context);
    for (const std::string& note : call.notes()) {
      std::cout << "note: " << note << '\n';
    }
    if (call.is_admitted()) {
      std::cout << "answer: " << answering.function(call.keywords()).text() << '\n';
    } else {
      std::cout << "refused: " << call.refusal() << '\n';
    }
  }
}
