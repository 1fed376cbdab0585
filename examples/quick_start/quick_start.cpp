// SPDX-License-Identifier: MIT
#include <iostream>
#include <string>

#include "tool_binding/tool_binding.hpp"

namespace tb = tool_binding;

struct Repository {
  std::string name;
};

/// Declares one tool: its actions, and what may be sent under which names, as what, within which bounds.
void declare_search() {
  tb::TOOLS.add({
      .name = "search",
      .actions = {{.name = "find", .synonyms = {"lookup"}}, {.name = "list"}},
      .default_action = "find",
      .params = {{.name = "query", .type = "string", .synonyms = {"q"}, .required_for = {"find"}},
                 {.name = "limit",
                  .type = "integer",
                  .synonyms = {"max_results"},
                  .minimum = 1,
                  .maximum = 100,
                  .default_ = 20},
                 {.name = "regex", .type = "boolean", .default_ = false}},
  });
}

/// The function that answers the tool. Every declared parameter is there, in its declared type.
tb::Value search(const tb::KeywordArguments& keywords) {
  const auto& repository = keywords.find("repository")->item<const Repository>();
  const tb::Value& query = keywords.find("query")->value();
  const tb::Value& limit = keywords.find("limit")->value();
  return "at most " + limit.integer().to_string() + " places in " + repository.name + " with '" +
         std::string(query.text()) + "'";
}

/// One request: admitted, bound, made into keywords, answered.
void answer(const tb::Handler& handler, const tb::ArgumentMap& arguments, const tb::KeywordArguments& context) {
  try {
    const tb::NormalizedArguments admitted = tb::normalize_arguments("search", arguments);
    for (const std::string& note : admitted.notes()) {
      std::cout << "note: " << note << '\n';
    }
    const tb::ArgumentMap bound = tb::bind_arguments("search", admitted.arguments());
    std::cout << "answer: " << handler.function(tb::handler_kwargs(handler, bound, context)).text() << '\n';
  } catch (const tb::ArgumentError& refusal) {
    std::cout << "refused: " << refusal.message() << '\n';
  }
}

int main() {
  declare_search();
  const tb::Handler handler = {
      .signature =
          {{{.name = "action"}, {.name = "query"}, {.name = "limit"}, {.name = "regex"}, {.name = "repository"}}},
      .function = search};

  const Repository repository = {"atlas"};
  const tb::KeywordArguments context = {{"repository", tb::KeywordArgument::context(repository)}};

  answer(handler, {{"q", "open_index"}, {"max_results", "500"}}, context);
  answer(handler, {{"limt", 5}, {"regex", "perhaps"}}, context);
}
