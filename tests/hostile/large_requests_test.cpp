// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

constexpr std::size_t many = 500'000;
constexpr std::size_t most = 4'000'000;

std::string times(std::size_t count, std::string_view part) {
  std::string text;
  text.reserve(count * part.size());
  for (; count > 0; --count) {
    text += part;
  }
  return text;
}

const ToolSpec& tool() {
  static const ToolSpec spec(ToolDeclaration{.name = "t",
                                             .actions = {{.name = "go"}},
                                             .default_action = "go",
                                             .params = {{.name = "i", .type = "integer", .maximum = 9},
                                                        {.name = "n", .type = "number"},
                                                        {.name = "b", .type = "boolean"},
                                                        {.name = "s", .type = "string"},
                                                        {.name = "a", .type = "array", .items_type = "string"},
                                                        {.name = "e", .type = "array", .enum_ = {"x"}},
                                                        {.name = times(300, "a"), .type = "string"}}});
  return spec;
}

/// Were the work of a row to grow with the square of its size, the test would not end in the time that it is given.
TEST(LargeRequests, CostByTheirSizeAndNotItsSquare) {
  const std::string digits = times(most, "7");
  const std::string names = "i, n, b, s, a, e, " + times(300, "a") + ".";
  const std::string unknown = " for t. It takes: " + names;
  std::string permuted;
  ArgumentMap colliding;
  std::string name = "abcdefghi";
  for (std::size_t count = 0; count < many / 5; ++count, std::next_permutation(name.begin(), name.end())) {
    colliding.append(name, 1);
    permuted += (permuted.empty() ? "refused: Unknown parameter '" : "; Unknown parameter '") + name + "'" + unknown;
  }
  const auto refused = [](const char* param, const char* words, const std::string& value) {
    return std::string("refused: Parameter '") + param + "' of t must be " + words + ", not '" + value + "'";
  };
  expect_admitted(
      tool(),
      {{"an integer", {{"i", "-" + digits}}, "{i: -" + digits + ", action: 'go'}"},
       {"with '_'", {{"i", "-" + times(many, "7_") + "7"}}, "{i: -" + times(many + 1, "7") + ", action: 'go'}"},
       {"one beyond a bound",
        {{"i", digits}},
        "{i: 9, action: 'go'} | 'i' " + digits + " is above the maximum: 9 was used"},
       {"a number", {{"n", "0." + times(most, "0") + "25e4000001"}}, "{n: 2.5, action: 'go'}"},
       {"an exponent", {{"n", "1e" + digits}}, "{n: inf, action: 'go'}"},
       {"no integer", {{"i", digits + "_"}}, refused("i", "a whole number", digits + "_")},
       {"no number", {{"n", digits + "e"}}, refused("n", "a number", digits + "e")},
       {"blank text", {{"s", times(most / 3, "\u3000")}}, "{action: 'go'}"},
       {"sigmas",
        {{"b", times(many, "\u03A3'")}},
        "refused: Parameter 'b' of t must be true or false, not \"" + times(many, "\u03A3'") + "\""},
       {"escapes", {{"i", times(many, "\x01")}}, refused("i", "a whole number", times(many, "\\x01"))},
       {"empty items", {{"a", times(most, ",")}}, "{a: [], action: 'go'}"},
       {"an unclosed item",
        {{"a", times(many, "\"\",") + "\""}},
        refused("a", "a list (or comma-separated text)", times(many, "\"\",") + "\"")},
       {"items", {{"a", std::vector<Value>(many, 1)}}, "{a: [" + times(many - 1, "'1', ") + "'1'], action: 'go'}"},
       {"problems",
        {{"e", std::vector<Value>(many, "y")}},
        "refused: " + times(many - 1, "Parameter 'e' of t must each be one of: x; not 'y'; ") +
            "Parameter 'e' of t must each be one of: x; not 'y'"},
       {"a name", {{times(most, "a"), 1}}, "refused: Unknown parameter '" + times(most, "a") + "'" + unknown},
       {"one near a long one",
        {{times(400, "a"), 1}},
        "refused: Unknown parameter '" + times(400, "a") + "' for t. Did you mean '" + times(300, "a") +
            "'? It takes: " + names},
       {"an action", {{"action", digits}}, "refused: Unknown action '" + digits + "' for t: one of go"},
       {"colliding names", colliding, permuted}});
}

}  // namespace
}  // namespace tool_binding
