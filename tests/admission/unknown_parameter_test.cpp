// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

TEST(UnknownParameter, IsToldWhatTheToolTakes) {
  expect_admitted(
      ToolSpec({.name = "search",
                .params = {{.name = "query", .type = "string", .synonyms = {"pattern"}},
                           {.name = "limit", .type = "integer", .synonyms = {"max_results", "pattern"}},
                           {.name = "\u00FCber", .type = "string"}}}),
      {
          {"a near name",
           {{"lmit", 1}},
           "ArgumentError: Unknown parameter 'lmit' for search. Did you mean 'limit'? It takes: query, limit, "
           "\u00FCber."},
          {"a near synonym",
           {{"max_result", 1}},
           "ArgumentError: Unknown parameter 'max_result' for search. Did you mean 'limit'? It takes: query, limit, "
           "\u00FCber."},
          {"a near synonym of two parameters",
           {{"patern", 1}},
           "ArgumentError: Unknown parameter 'patern' for search. Did you mean 'query'? It takes: query, limit, "
           "\u00FCber."},
          {"none near",
           {{"zzz", 1}},
           "ArgumentError: Unknown parameter 'zzz' for search. It takes: query, limit, \u00FCber."},
          {"no name, and quotes stand unchanged",
           {{"", 1}, {"it's\n", 1}},
           "ArgumentError: Unknown parameter '' for search. It takes: query, limit, \u00FCber.; Unknown parameter "
           "'it's\n' for search. It takes: query, limit, \u00FCber."},
      });
  expect_admitted(ToolSpec({.name = "status"}), {{"a tool that takes nothing",
                                                  {{"x", 1}},
                                                  "ArgumentError: Unknown parameter 'x' for status. It takes "
                                                  "none."}});
  expect_admitted(ToolSpec({.name = "nameless", .params = {{.name = "", .type = "string"}}}),
                  {{"a parameter without a name",
                    {{"x", 1}, {"", "a"}},
                    "ArgumentError: Unknown parameter 'x' for "
                    "nameless. It takes: ."}});
}

}  // namespace
}  // namespace tool_binding
