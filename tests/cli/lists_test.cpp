// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

TEST(Schema, ShowsTheToolsThatAreNamed) {
  const Finished finished = run({"schema", "--registry", registry(), "browse", "ping"});
  EXPECT_EQ(finished.out, R"({
  "tools": [
    {
      "name": "browse",
      "description": "",
      "inputSchema": {
        "type": "object",
        "properties": {
          "action": {"type": "string", "enum": ["list", "find"], "default": "list"},
          "limit": {"type": "integer", "description": "Default: 50 for list, 20 otherwise."},
          "query": {"type": "string", "description": "Needed by find."}
        },
        "additionalProperties": false
      }
    },
    {
      "name": "ping",
      "description": "",
      "inputSchema": {"type": "object", "properties": {}, "additionalProperties": false}
    }
  ]
}
)");
  EXPECT_EQ(finished.status, 0);
  EXPECT_NE(run({"schema", "--conditions", "--registry", registry()}).out.find("allOf"), std::string::npos);
  EXPECT_EQ(run({"schema", "--open", "--strict", "--registry", registry()}).status, 2);
  EXPECT_EQ(run({"schema", "--names", "--registry", registry()}).out, "ping\nfetch\nbrowse\n");
  EXPECT_EQ(run({"schema", "--names", "--registry", registry(), "browse"}).out, "action\nlimit\nquery\n");
  const Finished unknown = run({"schema", "--registry", registry(), "nope"});
  EXPECT_EQ(unknown.out, "");
  EXPECT_NE(unknown.errors.find("no tool is named 'nope'"), std::string::npos);
  EXPECT_EQ(unknown.status, 2);
}

TEST(Import, WritesARegistryAndNamesWhatItCannotSay) {
  const std::string list = file_of(R"({"tools": [
    {"name": "a", "inputSchema": {"properties": {"x": {"type": "object"}}, "required": ["x"]}},
    {"name": "b", "inputSchema": {"properties": {"y": {"type": "float", "multipleOf": 2}}}}]})");
  const Finished strict = run({"import", list});
  EXPECT_EQ(strict.out, "{\"tools\": [{\"name\": \"b\", \"params\": [{\"name\": \"y\", \"type\": \"number\"}]}]}\n");
  const std::string left_out = list + ":2: a: left out: 'x', which is required, cannot be an object\n";
  const std::string lost = list + ":3: 'y' of b: 'multipleOf' is not kept\n";
  EXPECT_EQ(strict.errors, left_out + lost + "1 of 2 tools, 1 rule lost\n");
  EXPECT_EQ(strict.status, 1);
  EXPECT_EQ(run({"import", "--verbose", list}).errors,
            left_out + list + ":3: 'y' of b: 'float' is read as 'number'\n" + lost + "1 of 2 tools, 1 rule lost\n");
  const Finished lenient = run({"import", "--lenient", list});
  EXPECT_NE(lenient.out.find("Send it as text that holds JSON."), std::string::npos);
  EXPECT_EQ(lenient.status, 0);
  EXPECT_EQ(run({"import"}, "{}").status, 2);
  EXPECT_EQ(run({"import"}, "{").status, 2);
  const Finished none = run({"import"}, R"([{"name": "a", "parameters": {"type": "string"}}])");
  EXPECT_EQ(none.out, "");
  EXPECT_EQ(none.status, 2);
  EXPECT_NE(none.errors.find("0 of 1 tool, 0 rules lost\n"), std::string::npos);
}

}  // namespace
