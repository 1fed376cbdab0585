// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

/// A value for a parameter, and the stored value's quoted form, or null where it is refused.
struct CoercionRow {
  Value given;
  const char* expected;
};

const std::vector<Value> list = {1, true, nullptr, 2.5, "a", std::vector<Value>{"b"}, ArgumentMap{{"k", 0}}};

void expect_coerced(const ParamSpec& param, const std::string& words, const std::vector<CoercionRow>& rows) {
  const ToolSpec tool({.name = "tool", .params = {param}});
  for (const CoercionRow& row : rows) {
    const std::string given = quoted_form(row.given);
    const std::string expected = row.expected == nullptr
                                     ? "ArgumentError: Parameter 'p' of tool must be " + words + ", not " + given
                                     : "{p: " + std::string(row.expected) + "}";
    EXPECT_EQ(outcome_of([&] { return normalize_arguments(tool, {{"p", row.given}}); }), expected) << given;
  }
}

TEST(Coercion, ToAnInteger) {
  expect_coerced({.name = "p", .type = "integer"}, "a whole number",
                 {{5, "5"},
                  {Integer::from_decimal("-123456789012345678901"), "-123456789012345678901"},
                  {5.0, "5"},
                  {-0.0, "0"},
                  {1e20, "100000000000000000000"},
                  {2.5, nullptr},
                  {-infinity, nullptr},
                  {not_a_number, nullptr},
                  {" 12\u3000", "12"},
                  {"+1_000", "1000"},
                  {"-\u0664\u0662", "-42"},
                  {"123456789012345678901", "123456789012345678901"},
                  {"5.0", nullptr},
                  {"1e3", nullptr},
                  {"ten", nullptr},
                  {"it's", nullptr},
                  {true, nullptr},
                  {list, nullptr},
                  {ArgumentMap{{"a", 1}}, nullptr}});
}

TEST(Coercion, ToANumber) {
  expect_coerced({.name = "p", .type = "number"}, "a number",
                 {{5, "5.0"},
                  {9007199254740993, "9007199254740992.0"},
                  {Integer::from_decimal("100000000000000000000000"), "1e+23"},
                  {2.5, "2.5"},
                  {not_a_number, "nan"},
                  {" 1e3 ", "1000.0"},
                  {"NaN", "nan"},
                  {"-Infinity", "-inf"},
                  {"1e999", "inf"},
                  {std::string(400, '9'), "inf"},
                  {"1,5", nullptr},
                  {"five", nullptr},
                  {false, nullptr},
                  {list, nullptr},
                  {ArgumentMap{}, nullptr}});
  const ToolSpec tool({.name = "tool", .params = {{.name = "p", .type = "number"}}});
  expect_admitted(tool, {{"an integer that no double can hold, after a problem",
                          {{"x", 1}, {"p", Integer::from_decimal(std::string(400, '9'))}},
                          "overflow_error"}});
}

TEST(Coercion, ToABoolean) {
  expect_coerced({.name = "p", .type = "boolean"}, "true or false",
                 {{true, "True"},
                  {false, "False"},
                  {1, "True"},
                  {0, "False"},
                  {2, nullptr},
                  {-1, nullptr},
                  {Integer::from_decimal("100000000000000000000"), nullptr},
                  {1.0, nullptr},
                  {" Yes", "True"},
                  {"off", "False"},
                  {"maybe", nullptr},
                  {list, nullptr},
                  {ArgumentMap{}, nullptr}});
}

TEST(Coercion, ToAText) {
  expect_coerced({.name = "p", .type = "string"}, "text",
                 {{" a ", "' a '"},
                  {12, "'12'"},
                  {Integer::from_decimal("-100000000000000000000"), "'-100000000000000000000'"},
                  {5.0, "'5.0'"},
                  {1e16, "'1e+16'"},
                  {not_a_number, "'nan'"},
                  {false, nullptr},
                  {list, nullptr},
                  {ArgumentMap{{"a", 1}}, nullptr}});
}

TEST(Coercion, ToAList) {
  const std::string words = "a list (or comma-separated text)";
  const char* const as_given = "[1, True, None, 2.5, 'a', ['b'], {'k': 0}]";
  const char* const as_texts = R"(['1', 'True', 'None', '2.5', 'a', "['b']", "{'k': 0}"])";
  const std::vector<CoercionRow> refused = {
      {5, nullptr}, {2.5, nullptr}, {true, nullptr}, {ArgumentMap{{"a", 1}}, nullptr}, {"a,\"b", nullptr}};
  for (const std::optional<Text>& items : {std::optional<Text>(), std::optional<Text>("integer")}) {
    const ParamSpec param = {.name = "p", .type = "array", .items_type = items};
    expect_coerced(param, words, refused);
    expect_coerced(param, words, {{list, as_given}, {"a, b,1", "['a', 'b', '1']"}, {std::vector<Value>{}, "[]"}});
  }
  const ParamSpec texts = {.name = "p", .type = "array", .items_type = "string"};
  expect_coerced(texts, words, refused);
  expect_coerced(texts, words,
                 {{list, as_texts},
                  {"a, b,1", "['a', 'b', '1']"},
                  {std::vector<Value>{}, "[]"},
                  {std::vector<Value>{"a", "b"}, "['a', 'b']"},
                  {std::vector<Value>{"a", 1, "b"}, "['a', '1', 'b']"}});
  expect_coerced({.name = "p", .type = "string", .items_type = "string"}, "text", {{"a,b", "'a,b'"}});
}

TEST(Coercion, ToATypeThatIsNoneFails) {
  expect_admitted(ToolSpec({.name = "tool", .params = {{.name = "p", .type = "Integer"}}}),
                  {{"after a problem of the request",
                    {{"x", 1}, {"p", 5}},
                    "KeyError: no type is named 'Integer', which parameter 'p' is declared with"},
                   {"not where nothing is given", {{"p", " "}}, "{}"}});
}

}  // namespace
}  // namespace tool_binding
