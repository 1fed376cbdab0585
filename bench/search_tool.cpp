// SPDX-License-Identifier: MIT
#include "search_tool.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tool_binding::bench {

ToolDeclaration search_declaration() {
  return {.name = "search",
          .actions = {{.name = "find"}, {.name = "list"}, {.name = "outline"}, {.name = "stats"}},
          .default_action = "find",
          .params = {
              {.name = "query", .type = "string", .required_for = {"find"}},
              {.name = "path", .type = "string"},
              {.name = "limit", .type = "integer", .minimum = 1, .maximum = 100, .default_ = 20},
              {.name = "offset", .type = "integer", .minimum = 0, .default_ = 0},
              {.name = "threshold", .type = "number", .minimum = 0, .maximum = 1, .default_ = 0.5},
              {.name = "regex", .type = "boolean", .default_ = false},
              {.name = "kinds",
               .type = "array",
               .items_type = "string",
               .enum_ = {"function", "class", "module", "variable"}},
              {.name = "mode", .type = "string", .enum_ = {"exact", "fuzzy", "semantic"}, .default_ = "exact"},
              {.name = "include_private", .type = "boolean", .default_ = false},
              {.name = "languages", .type = "array", .items_type = "string"},
              {.name = "context_lines", .type = "integer", .minimum = 0, .maximum = 50, .default_ = 2},
              {.name = "sort", .type = "string", .enum_ = {"relevance", "path", "recent"}, .default_ = "relevance"},
          }};
}

Handler search_handler() {
  std::vector<Parameter> parameters = {{ACTION_PARAM}};
  for (const ParamSpec& param : search_declaration().params) {
    parameters.push_back({param.name});
  }
  parameters.push_back({"root"});
  return {.signature = {.parameters = std::move(parameters)}, .function = {}};
}

KeywordArguments daemon_context() {
  return {{"repository", KeywordArgument::context(std::make_shared<std::string>("a repository"))},
          {"root", KeywordArgument::context(std::make_shared<std::string>("its root"))},
          {"engines", KeywordArgument::context(std::make_shared<std::string>("its engines"))}};
}

}  // namespace tool_binding::bench
