// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>

#include "handlers/search_actions.hpp"
#include "tool_binding/errors.hpp"
#include "tools.hpp"

namespace repo_daemon {

namespace {

namespace tb = tool_binding;

struct Action {
  std::string_view name;
  std::string (*run)(const Keywords& keywords, const Repository& repository);
};

constexpr Action actions[] = {
    {"find", find_text}, {"list", list_directory}, {"outline", outline_file}, {"stats", count_lines}};

tb::Value search(const tb::KeywordArguments& arguments) {
  const Keywords keywords("search", arguments);
  const auto* const found = std::find_if(std::begin(actions), std::end(actions),
                                         [&](const Action& action) { return action.name == keywords.action(); });
  if (found == std::end(actions)) {
    throw tb::LookupError("search has no such action");
  }
  return found->run(keywords, keywords.context<const Repository>("repository"));
}

std::vector<tb::ActionSpec> declared_actions() {
  return {{.name = "find", .synonyms = {"grep", "lookup"}, .description = "lines that hold a text"},
          {.name = "list", .synonyms = {"ls", "dir"}, .description = "what stands in a directory"},
          {.name = "outline", .synonyms = {"symbols", "toc"}, .description = "what a file declares"},
          {.name = "stats", .synonyms = {"statistics"}, .description = "files, lines and bytes by kind of file"}};
}

std::vector<tb::ParamSpec> declared_parameters() {
  return {{.name = "query",
           .type = "string",
           .synonyms = {"q", "text", "search_term"},
           .description = "The text to find, within one line.",
           .required_for = {"find"}},
          {.name = "path",
           .type = "string",
           .synonyms = {"file", "file_path", "directory"},
           .description = "A file or directory, from the root on.",
           .required_for = {"outline"}},
          {.name = "patterns",
           .type = "array",
           .synonyms = {"pattern", "glob", "include"},
           .description = "The files to look at, as *.cpp or src/**/*.{hpp,cpp}; none stands for all.",
           .items_type = "string"},
          {.name = "match",
           .type = "string",
           .synonyms = {"mode"},
           .description = "Whether the query may stand anywhere or must be a whole word.",
           .enum_ = {"text", "word"},
           .default_ = "text"},
          {.name = "ignore_case",
           .type = "boolean",
           .synonyms = {"case_insensitive"},
           .description = "Whether a-z and A-Z are the same to find.",
           .default_ = false},
          {.name = "context_lines",
           .type = "integer",
           .synonyms = {"context"},
           .description = "Lines to show around each line found.",
           .minimum = 0,
           .maximum = 10,
           .default_ = 0},
          {.name = "kinds",
           .type = "array",
           .synonyms = {"kind"},
           .description = "What to outline; none stands for all.",
           .items_type = "string",
           .enum_ = {"function", "heading", "namespace", "type"}},
          {.name = "limit",
           .type = "integer",
           .synonyms = {"max_results", "top_k", "count"},
           .description = "The most results to show.",
           .minimum = 1,
           .maximum = 1000,
           .action_defaults = {{"find", 50}, {"list", 200}, {"outline", 300}, {"stats", 20}}}};
}

}  // namespace

tb::RegistryEntry search_tool() {
  return {.tool = {.name = "search",
                   .description = "Looks through the files: finds text, lists, outlines and counts.",
                   .actions = declared_actions(),
                   .default_action = "find",
                   .params = declared_parameters()},
          .handler = {.signature = {{{.name = "action"},
                                     {.name = "query"},
                                     {.name = "path"},
                                     {.name = "patterns"},
                                     {.name = "match"},
                                     {.name = "ignore_case"},
                                     {.name = "context_lines"},
                                     {.name = "kinds"},
                                     {.name = "limit"},
                                     {.name = "repository"},
                                     {.name = "call"}}},
                      .function = search}};
}

}  // namespace repo_daemon
