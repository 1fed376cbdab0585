// SPDX-License-Identifier: MIT

#include <limits>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

const Value mixed = std::vector<Value>{1, true, nullptr, 2.5, "a", std::vector<Value>{"b"}, ArgumentMap{{"k", 0}}};
const Value mapping = ArgumentMap{{"it's", 1}};
const Value wide = Integer::from_decimal("-123456789012345678901");

/// Values for a parameter, and the quoted forms of what is stored for each.
struct CoercionRow {
  std::vector<Value> given;
  std::string expected;
};

void expect_coerced(const ParamSpec& param, const std::vector<CoercionRow>& rows, const std::string& words,
                    const std::vector<Value>& refused) {
  const ToolSpec tool({.name = "t", .params = {param}});
  for (const CoercionRow& row : rows) {
    std::vector<Value> stored;
    for (const Value& value : row.given) {
      stored.push_back(*normalize_arguments(tool, {{"p", value}}).arguments().find("p"));
    }
    EXPECT_EQ(quoted_form(stored), "[" + row.expected + "]");
  }
  for (const Value& value : refused) {
    EXPECT_EQ(outcome_of([&] {
                return normalize_arguments(tool, {{"p", value}});
              }),
              "refused: Parameter 'p' of t must be " + words + ", not " + quoted_form(value));
  }
}

TEST(Coercion, ToAnInteger) {
  expect_coerced(
      {.name = "p", .type = "integer"},
      {{{5, wide}, "5, -123456789012345678901"},
       {{5.0, -0.0, 1e20}, "5, 0, 100000000000000000000"},
       {{" 12\u3000", "+1_000", "-\u0664\u0662", "0123456789012345678901"}, "12, 1000, -42, 123456789012345678901"}},
      "a whole number", {2.5, infinity, -infinity, not_a_number, "5.0", "1e3", "ten", "it's", true, mixed, mapping});
}

TEST(Coercion, ToANumber) {
  expect_coerced({.name = "p", .type = "number"},
                 {{{5, 9007199254740993, wide}, "5.0, 9007199254740992.0, -1.2345678901234568e+20"},
                  {{2.5, not_a_number, -infinity}, "2.5, nan, -inf"},
                  {{" 1e3 ", "NaN", "-Infinity", "1e999", std::string(400, '9')}, "1000.0, nan, -inf, inf, inf"}},
                 "a number", {"1,5", "five", false, mixed, mapping});
  const Value beyond_doubles = Integer::from_decimal(std::string(400, '9'));
  expect_admitted(ToolSpec({.name = "t", .params = {{.name = "p", .type = "number"}}}),
                  {{"no double, after a problem", {{"x", 1}, {"p", beyond_doubles}}, "overflow_error"}});
}

TEST(Coercion, ToABoolean) {
  expect_coerced({.name = "p", .type = "boolean"},
                 {{{true, false, 1, 0, " Yes", "off"}, "True, False, True, False, True, False"}}, "true or false",
                 {2, -1, wide, 1.0, 0.0, "maybe", mixed, mapping});
}

TEST(Coercion, ToAText) {
  expect_coerced({.name = "p", .type = "string", .items_type = "string"},
                 {{{" a ", "a,b"}, "' a ', 'a,b'"},
                  {{12, wide, 5.0, 1e16, not_a_number}, "'12', '-123456789012345678901', '5.0', '1e+16', 'nan'"}},
                 "text", {false, mixed, mapping});
}

TEST(Coercion, ToAList) {
  const std::vector<Value> refused = {5, 2.5, true, mapping, "a,\"b"};
  const CoercionRow split = {{"a, b,1", std::vector<Value>{}, std::vector<Value>{"a", "b"}},
                             "['a', 'b', '1'], [], ['a', 'b']"};
  for (const std::optional<Text>& items : {std::optional<Text>(), std::optional<Text>("integer")}) {
    expect_coerced({.name = "p", .type = "array", .items_type = items}, {split, {{mixed}, quoted_form(mixed)}},
                   "a list (or comma-separated text)", refused);
  }
  expect_coerced({.name = "p", .type = "array", .items_type = "string"},
                 {split,
                  {{mixed, std::vector<Value>{"a", 1, "b"}},
                   R"(['1', 'True', 'None', '2.5', 'a', "['b']", "{'k': 0}"], ['a', '1', 'b'])"}},
                 "a list (or comma-separated text)", refused);
}

TEST(Coercion, ToATypeThatIsNoneFails) {
  expect_admitted(ToolSpec({.name = "t", .params = {{.name = "p", .type = "Integer"}}}),
                  {{"after a problem of the request",
                    {{"x", 1}, {"p", 5}},
                    "KeyError: no type is named 'Integer', which parameter 'p' is declared with"},
                   {"not where nothing is given", {{"p", " "}}, "{}"}});
}

}  // namespace
}  // namespace tool_binding
