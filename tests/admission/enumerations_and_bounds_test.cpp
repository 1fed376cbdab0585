// SPDX-License-Identifier: MIT

#include <limits>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Enumerations, AreMatchedWhateverTheirCase) {
  struct Row {
    const char* shows;
    std::vector<Text> values;
    Value given;
    std::string expected;
    const char* type = "string";
  };
  const std::string refused = "refused: Parameter 'p' of t must be one of: ";
  const Row rows[] = {
      {"as it is declared", {"Red", "Green"}, "Green", "{p: 'Green'}"},
      {"in another case", {"Red", "Green"}, "gREEN", "{p: 'Green'}"},
      {"with white space around it", {"Red", "Green"}, "\u00A0red\n", "{p: 'Red'}"},
      {"none", {"Red", "Green"}, " it's ", refused + "Red, Green; not \" it's \""},
      {"a part of one", {"Red", "Green"}, "re", refused + "Red, Green; not 're'"},
      {"two that differ in case", {"a", "A"}, "A", "{p: 'a'}"},
      {"declared with white space", {" red", "blue"}, " red", refused + " red, blue; not ' red'"},
      {"a final sigma", {"\u039F\u03A3"}, "\u03BF\u03C2", "{p: '\u039F\u03A3'}"},
      {"a sigma that is not final", {"\u039F\u03A3"}, "\u03BF\u03C3", refused + "\u039F\u03A3; not '\u03BF\u03C3'"},
      {"two characters from one", {"\u0130"}, "i\u0307", "{p: '\u0130'}"},
      {"a sharp s stays one", {"STRASSE"}, "stra\u00DFe", refused + "STRASSE; not 'stra\u00DFe'"},
      {"an integer", {"1", "2"}, " 2 ", "{p: '2'}", "integer"},
      {"an integer that is none", {"1", "2"}, 7.0, refused + "1, 2; not '7'", "integer"},
      {"a number", {"1", "2.0"}, 2, "{p: '2.0'}", "number"},
      {"a boolean", {"true", "maybe"}, 1, "{p: 'true'}", "boolean"},
      {"not coerced", {"1"}, "x", "refused: Parameter 'p' of t must be a whole number, not 'x'", "integer"},
      {"bounds do not apply", {"50"}, 50, "{p: '50'}", "integer"}};
  for (const Row& row : rows) {
    const ToolSpec tool({.name = "t", .params = {{.name = "p", .type = row.type, .enum_ = row.values, .maximum = 9}}});
    expect_admitted(tool, {{row.shows, {{"p", row.given}}, row.expected}});
  }
}

TEST(Enumerations, AreMatchedByEveryItemOfAList) {
  const std::string refused = "Parameter 'p' of t must each be one of: Red, Green, 5; not ";
  const std::vector<ArgumentsRow> rows = {
      {"in the order of the items", {{"p", "green,red, Green"}}, "{p: ['Green', 'Red', 'Green']}"},
      {"an item that is no text", {{"p", std::vector<Value>{"Red", 5, "red"}}}, "{p: ['Red', '5', 'Red']}"},
      {"a problem for each, and nothing stored",
       {{"p", std::vector<Value>{"green", "blue", nullptr, "red"}}},
       "refused: " + refused + "'blue'; " + refused + "'None'; t needs 'p'"},
      {"no item", {{"p", std::vector<Value>{}}}, "refused: t needs 'p'"},
      {"no list",
       {{"p", 5}},
       "refused: Parameter 'p' of t must be a list (or comma-separated text), not 5; t needs 'p'"}};
  for (const std::optional<Text>& items : {std::optional<Text>(), std::optional<Text>("string")}) {
    const std::vector<Text> values = {"Red", "Green", "5"};
    const ParamSpec param = {.name = "p", .type = "array", .items_type = items, .enum_ = values, .required = true};
    expect_admitted(ToolSpec({.name = "t", .params = {param}}), rows);
  }
}

struct BoundsRow {
  const char* shows;
  const char* type;
  Value minimum;
  Value maximum;
  Value given;
  std::string expected;
};

void expect_bounded(const std::vector<BoundsRow>& rows) {
  for (const BoundsRow& row : rows) {
    const ToolSpec tool(
        {.name = "t", .params = {{.name = "p", .type = row.type, .minimum = row.minimum, .maximum = row.maximum}}});
    expect_admitted(tool, {{row.shows, {{"p", row.given}}, row.expected}});
  }
}

/// What comes of a number beyond a bound.
std::string raised(const std::string& value, const std::string& bound) {
  return "{p: " + bound + "} | 'p' " + value + " is below the minimum: " + bound + " was used";
}
std::string lowered(const std::string& value, const std::string& bound) {
  return "{p: " + bound + "} | 'p' " + value + " is above the maximum: " + bound + " was used";
}

TEST(Bounds, AreUsedInsteadOfANumberBeyondThem) {
  const Integer wide = Integer::from_decimal("100000000000000000000");
  const Integer wider = Integer::from_decimal("100000000000000000001");
  const char* const wide_digits = "100000000000000000000";
  expect_bounded({{"between them", "integer", 1, 9, 5, "{p: 5}"},
                  {"equal to the minimum", "integer", 1, 9, 1, "{p: 1}"},
                  {"equal to the maximum", "integer", 1, 9, "9", "{p: 9}"},
                  {"above", "integer", 1, 100, "500", lowered("500", "100")},
                  {"below", "integer", 1, 100, -500, raised("-500", "1")},
                  {"a minimum of 0", "integer", 0, {}, -1, raised("-1", "0")},
                  {"a maximum of 0", "number", {}, 0, 1e-300, lowered("1e-300", "0.0")},
                  {"none", "integer", {}, {}, -5, "{p: -5}"},
                  {"a wide integer", "integer", {}, wide, wider, lowered("100000000000000000001", wide_digits)},
                  {"equal to a wide bound", "integer", wide, wide, wide, std::string("{p: ") + wide_digits + "}"},
                  {"a wide minimum", "integer", wide, {}, 5, raised("5", wide_digits)},
                  {"a minimum above the maximum, below it", "integer", 10, 5, 9, raised("9", "10")},
                  {"a minimum above the maximum, not below it", "integer", 10, 5, 10, lowered("10", "5")},
                  {"below the minimum, whatever the maximum", "integer", 10, "no number", 5, raised("5", "10")},
                  {"a text", "string", 1, 2, "5", "{p: '5'}"},
                  {"a boolean", "boolean", 5, 9, true, "{p: True}"},
                  {"a list", "array", 5, 9, std::vector<Value>{1, 100}, "{p: [1, 100]}"}});
}

TEST(Bounds, TakeTheKindOfTheParameter) {
  const Integer beyond_doubles = Integer::from_decimal("1" + std::string(400, '0'));
  expect_bounded({{"an integer for a number", "number", {}, 100, "1e3", lowered("1000.0", "100.0")},
                  {"a floating number for a number", "number", 0.5, {}, 0, raised("0.0", "0.5")},
                  {"cut toward zero from above", "integer", {}, 2.9, 3, lowered("3", "2")},
                  {"cut toward zero from below", "integer", -2.9, {}, -3, raised("-3", "-2")},
                  {"within a floating bound", "integer", {}, 2.9, 2, "{p: 2}"},
                  {"a large floating number", "integer", 1e22, {}, 5, raised("5", "10000000000000000000000")},
                  {"an infinity for an integer", "integer", infinity, {}, 5, "overflow_error"},
                  {"an infinity that is not reached", "integer", -infinity, infinity, 5, "{p: 5}"},
                  {"an integer beyond all doubles for a number", "number", beyond_doubles, {}, 5, "overflow_error"},
                  {"no number", "integer", "1", {}, 5, "TypeError: a bound is an integer or a floating number"},
                  {"a boolean", "number", {}, true, 5, "TypeError: a bound is an integer or a floating number"},
                  {"no number, with nothing to compare", "string", "1", {}, "a", "{p: 'a'}"}});
}

TEST(Bounds, CompareExactly) {
  const double not_a_number = std::numeric_limits<double>::quiet_NaN();
  const double even = 9007199254740992.0;  // the greatest power of two below which every integer is a double
  const std::int64_t odd = 9007199254740993;
  const std::string digits = "9007199254740992";
  expect_bounded(
      {{"an integer that would round to the bound", "integer", {}, even, odd, lowered("9007199254740993", digits)},
       {"the same below", "integer", -even, {}, -odd, raised("-9007199254740993", "-" + digits)},
       {"equal to a floating bound", "integer", even, even, odd - 1, "{p: " + digits + "}"},
       {"a bound that would round to the value", "number", odd, {}, even, raised(digits + ".0", digits + ".0")},
       {"the same above", "number", {}, odd, even + 2, lowered("9007199254740994.0", digits + ".0")},
       {"negative zero is not below zero", "number", 0, {}, -0.0, "{p: -0.0}"},
       {"an infinity above", "number", {}, 100, "inf", lowered("inf", "100.0")},
       {"an infinity below", "number", 0, {}, "-inf", raised("-inf", "0.0")},
       {"an infinity as the bound", "number", {}, infinity, infinity, "{p: inf}"},
       {"not a number", "number", 0, 1, not_a_number, "{p: nan}"},
       {"not a number as the bound", "integer", not_a_number, not_a_number, 5, "{p: 5}"}});
}

}  // namespace
}  // namespace tool_binding
