// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "command.hpp"

namespace {

using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

TEST(Missing, SaysWhatACallLacks) {
  const Finished finished =
      run({"missing", "--registry", registry()}, R"({"tool": "browse", "action": "find", "arguments": {"query": " "}}
{"tool": "browse", "action": null}
{"tool": "fetch", "arguments": {"link": "a"}}
{"tool": "nope"}
{"tool": "browse", "action": 5}
)");
  EXPECT_EQ(finished.out, R"({"tool": "browse", "missing": "browse 'find' needs 'query'"}
{"tool": "browse", "missing": null}
{"tool": "fetch", "missing": "fetch needs 'url'"}
{"tool": "nope", "error": "KeyError", "message": "no tool is named 'nope'"}
{"error": "ValueError", "message": "line 5: 'action' must be text, and is a number"}
)");
  EXPECT_EQ(finished.status, 1);
}

TEST(Missing, IsAnAnswerAndNoRefusal) {
  EXPECT_EQ(run({"missing", "--registry", registry()}, R"({"tool": "fetch"})").status, 0);
}

TEST(Default, LooksUpWhatACallGets) {
  const Finished finished =
      run({"default", "--registry", registry()}, R"({"tool": "browse", "name": "limit", "action": "list"}
{"tool": "browse", "name": "limit", "action": "find"}
{"tool": "browse", "name": "limit"}
{"tool": "browse", "name": "query", "action": null}
{"tool": "browse", "name": "it's", "action": "list"}
{"tool": "nope", "name": "limit", "action": "list"}
{"tool": "browse", "action": "list"}
)");
  EXPECT_EQ(finished.out, R"({"tool": "browse", "default": 50}
{"tool": "browse", "default": 20}
{"tool": "browse", "default": 20}
{"tool": "browse", "default": null}
{"tool": "browse", "error": "LookupError", "message": "the registry's browse tool declares no \"it's\""}
{"tool": "nope", "error": "KeyError", "message": "no tool is named 'nope'"}
{"error": "ValueError", "message": "line 7: 'name' is left out"}
)");
  EXPECT_EQ(finished.status, 1);
}

}  // namespace
