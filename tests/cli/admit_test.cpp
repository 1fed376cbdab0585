// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "command.hpp"

namespace {

using cli_test::file_of;
using cli_test::Finished;
using cli_test::registry;
using cli_test::run;

struct Row {
  const char* shows;
  std::string line;
  std::string answer;
  int status = 0;
};

void expect_answers(const std::vector<Row>& rows, const std::vector<std::string>& arguments) {
  for (const Row& row : rows) {
    const Finished finished = run(arguments, row.line + "\n");
    EXPECT_EQ(finished.out, row.answer + "\n") << row.shows;
    EXPECT_EQ(finished.errors, "") << row.shows;
    EXPECT_EQ(finished.status, row.status) << row.shows;
  }
}

const std::string pong =
    R"("tool": "ping", "arguments": {}, "notes": [], "alias_hit": false, "bound": {}, "keywords": {}})";

TEST(Admit, AnswersThePlainShape) {
  expect_answers(
      {{"repairs", R"({"tool": "fetch", "arguments": {"link": "a", "tries": "12"}})",
        R"({"tool": "fetch", "arguments": {"url": "a", "tries": 9}, )"
        R"("notes": ["'link' was read as 'url'", "'tries' 12 is above the maximum: 9 was used"], "alias_hit": true, )"
        R"("bound": {"url": "a", "tries": 9, "wait": null}, "keywords": {"url": "a", "tries": 9, "wait": null}})"},
       {"arguments null", R"({"tool": "ping", "arguments": null, "more": 1})", "{" + pong},
       {"id first, of any kind", R"({"tool": "ping", "id": {"a": [1.0, null]}})",
        R"({"id": {"a": [1.0, null]}, )" + pong},
       {"carriage return", "{\"tool\": \"ping\"}\r", "{" + pong},
       {"a key given twice", R"({"tool": "fetch", "tool": "ping"})", "{" + pong}},
      {"admit", "--registry", registry()});
}

TEST(Admit, RefusesInThePlainShape) {
  const std::string wide(400, '9');
  const std::string deep(1001, '[');
  expect_answers(
      {{"every problem", R"({"tool": "fetch", "id": 7, "arguments": {"tries": []}})",
        R"({"id": 7, "tool": "fetch", "error": "ArgumentError", "message": )"
        R"("Parameter 'tries' of fetch must be a whole number, not []; fetch needs 'url'"})",
        1},
       {"no such tool", R"({"tool": "a\u0000b"})",
        R"({"tool": "a\u0000b", "error": "KeyError", "message": "no tool is named 'a\u0000b'"})", 1},
       {"too wide a number", R"({"tool": "fetch", "arguments": {"url": "a", "wait": )" + wide + "}}",
        R"({"tool": "fetch", "error": "OverflowError", "message": "the integer is too large for a floating number"})",
        1},
       {"no object", "[1]",
        R"({"error": "ValueError", "message": "line 1: a request must be an object, and is a list"})", 1},
       {"no tool, with an id", R"({"id": 7})",
        R"({"id": 7, "error": "ValueError", "message": "line 1: 'tool' is left out"})", 1},
       {"a tool that is no text", R"({"tool": 5})",
        R"({"error": "ValueError", "message": "line 1: 'tool' must be text, and is a number"})", 1},
       {"arguments that are no object", R"({"tool": "ping", "arguments": []})",
        R"({"error": "ValueError", "message": "line 1: 'arguments' must be an object, and is a list"})", 1}},
      {"admit", "--registry", registry()});
  for (const std::string& ill_formed : {deep, std::string("{\"tool\": \"\xff\"}"), std::string("{\"tool\"")}) {
    const std::string answer = run({"admit", "--registry", registry()}, ill_formed).out;
    EXPECT_EQ(answer.rfind(R"({"error": "ValueError", "message": "line 1: byte )", 0), 0U) << answer;
  }
}

TEST(Admit, AnswersJsonRpc) {
  const std::string call = R"("method": "tools/call", "params": {"name": "ping"})";
  const auto refused = [](const std::string& id, int code, const std::string& words) {
    return R"({"jsonrpc": "2.0", "id": )" + id + R"(, "error": {"code": )" + std::to_string(code) +
           R"(, "message": "line 1: )" + words + "\"}}";
  };
  expect_answers(
      {{"a call", R"({"jsonrpc": "2.0", "id": "a\"", )" + call + "}",
        R"({"jsonrpc": "2.0", "id": "a\"", "result": {)" + pong + "}"},
       {"no id", R"({"jsonrpc": "2.0", )" + call + "}", R"({"jsonrpc": "2.0", "id": null, "result": {)" + pong + "}"},
       {"a refusal is a result", R"({"jsonrpc": "2.0", "id": 1, "method": "tools/call", "params": {"name": "x"}})",
        R"({"jsonrpc": "2.0", "id": 1, "result": )"
        R"({"tool": "x", "error": "KeyError", "message": "no tool is named 'x'"}})",
        1},
       {"another version", R"({"jsonrpc": "1.0", "id": 1, )" + call + "}",
        refused("1", -32600, "'jsonrpc' must be '2.0'"), 1},
       {"another method", R"({"jsonrpc": "2.0", "id": 1, "method": "tools/list"})",
        refused("1", -32600, "'method' must be 'tools/call'"), 1},
       {"no params", R"({"jsonrpc": "2.0", "method": "tools/call", "tool": "ping"})",
        refused("null", -32600, "'params' is left out"), 1},
       {"ill-formed", R"( { "jsonrpc" : "2.0", "id": 1,)",
        refused("null", -32700, "byte 31: a key between double quotes is missing"), 1}},
      {"admit", "--registry", registry()});
}

TEST(Admit, OffersTheContext) {
  const std::string context = file_of(R"({"root": ["r", 1.0], "engines": 2})");
  expect_answers({{"what the handler names", R"({"tool": "fetch", "arguments": {"url": "a"}})",
                   R"({"tool": "fetch", "arguments": {"url": "a"}, "notes": [], "alias_hit": false, )"
                   R"("bound": {"url": "a", "tries": 3, "wait": null}, )"
                   R"("keywords": {"url": "a", "tries": 3, "wait": null, "root": ["r", 1.0]}})"},
                  {"a handler of any keyword", R"({"tool": "ping"})",
                   R"({"tool": "ping", "arguments": {}, "notes": [], "alias_hit": false, "bound": {}, )"
                   R"("keywords": {"root": ["r", 1.0], "engines": 2}})"}},
                 {"admit", "--registry", registry(), "--context", context});
}

}  // namespace
