// SPDX-License-Identifier: MIT
#include <iostream>
#include <string>
#include <vector>

#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tb = tool_binding;

tb::Value search(const tb::KeywordArguments& keywords) {
  return "places with " + std::string(keywords.find("query")->value().text());
}

tb::Value ping(const tb::KeywordArguments& /*keywords*/) { return "here"; }

/// Tools and handlers side by side, as in a registry file.
const std::vector<tb::RegistryEntry> registry = {
    tb::RegistryEntry{
        .tool = {.name = "search",
                 .description = "Find code by what it says.",
                 .actions = {{.name = "find", .synonyms = {"lookup"}}, {.name = "list"}},
                 .default_action = "find",
                 .params = {tb::ParamSpec{
                                .name = "query", .type = "string", .synonyms = {"q"}, .required_for = {"find"}},
                            tb::ParamSpec{
                                .name = "limit", .type = "integer", .minimum = 1, .maximum = 100, .default_ = "20"}}},
        .handler = {.signature = tb::Signature::named("action", "query", "limit"), .function = search}},

    tb::RegistryEntry{.tool = {.name = "ping", .description = "Whether the daemon is there."},
                      .handler = {.signature = {}, .function = ping}},
};

/// What is wrong with the registry stops the daemon before its first request; what is doubtful is for its log.
int main() {
  try {
    const tb::Handlers handlers = tb::declare_tools(registry);
    for (const tb::RegistryFinding& warning : tb::registry_warnings(registry)) {
      std::cout << "warning: " << warning.place << ": " << warning.words << '\n';
    }
    const tb::ArgumentMap admitted = tb::normalize_arguments("search", {{"q", "open_index"}}).arguments();
    const tb::Handler& handler = handlers.at("search");
    std::cout << handler.function(tb::handler_kwargs(handler, tb::bind_arguments("search", admitted), {})).text()
              << '\n';
  } catch (const tb::RegistryError& error) {
    std::cout << error.message() << '\n';
    return 1;
  }
}
