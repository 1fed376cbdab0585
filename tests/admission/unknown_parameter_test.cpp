// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

TEST(UnknownParameter, IsToldWhatTheToolTakes) {
  const std::string odd("it's\n\0x", 7);
  const std::string unknown = "refused: Unknown parameter ";
  const std::string takes = " It takes: query, limit, \u00FCber.";
  const std::vector<ArgumentsRow> rows = {
      {"a near name", {{"lmit", 1}}, unknown + "'lmit' for search. Did you mean 'limit'?" + takes},
      {"a near synonym", {{"max_result", 1}}, unknown + "'max_result' for search. Did you mean 'limit'?" + takes},
      {"the first of two", {{"patern", 1}}, unknown + "'patern' for search. Did you mean 'query'?" + takes},
      {"none near", {{"zzz", 1}}, unknown + "'zzz' for search." + takes},
      {"no name", {{"", 1}}, unknown + "'' for search." + takes},
      {"quotes and zero bytes stand unchanged", {{odd, 1}}, unknown + "'" + odd + "' for search." + takes}};
  expect_admitted(ToolSpec({.name = "search",
                            .params = {{.name = "query", .type = "string", .synonyms = {"pattern"}},
                                       {.name = "limit", .type = "integer", .synonyms = {"max_results", "pattern"}},
                                       {.name = "\u00FCber", .type = "string"}}}),
                  rows);
  expect_admitted(ToolSpec({.name = "t"}), {{"nothing", {{"x", 1}}, unknown + "'x' for t. It takes none."}});
  expect_admitted(ToolSpec({.name = "t", .params = {{.name = "", .type = "string", .synonyms = {"nameless"}}}}),
                  {{"what has no name", {{"nameles", 1}, {"", "a"}}, unknown + "'nameles' for t. It takes: ."}});
}

}  // namespace
}  // namespace tool_binding
