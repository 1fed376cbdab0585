// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

/// A text with a synonym, a number with two, a text whose blank is a value, a list, and a name of the routing's.
ToolDeclaration declaration() {
  return {.name = "t",
          .params = {{.name = "s", .type = "string", .synonyms = {"r"}},
                     {.name = "n", .type = "integer", .synonyms = {"m", "c"}, .maximum = 100},
                     {.name = "b", .type = "string", .synonyms = {"d"}, .blank_is_value = true},
                     {.name = "l", .type = "array"},
                     {.name = "repo", .type = "string", .synonyms = {"place"}}}};
}

const std::string takes = " It takes: s, n, b, l, repo.";

TEST(NormalizeArguments, TakesAnArgumentByTheFirstTestThatApplies) {
  const std::string unknown = "refused: Unknown parameter ";
  const std::vector<ArgumentsRow> rows = {
      {"nothing", {}, "{}"},
      {"routing names, one of them declared", {{"repo", "a"}, {"repo_root", 5}}, "{}"},
      {"a synonym of a routing name", {{"place", "a"}}, "{repo: 'a'} | 'place' was read as 'repo' | alias"},
      {"a routing name in another case", {{"Repo", 1}}, unknown + "'Repo' for t. Did you mean 'repo'?" + takes},
      {"null", {{"s", nullptr}, {"zzz", nullptr}, {"repo", nullptr}, {"action", nullptr}, {"r", nullptr}}, "{}"},
      {"a blank action", {{"action", " \t\u3000"}}, "{}"},
      {"an undeclared name, blank", {{"zzz", " "}}, unknown + "'zzz' for t." + takes},
      {"a name in another case", {{"S", "a"}}, unknown + "'S' for t." + takes},
      {"blank text", {{"s", ""}, {"n", " \n"}, {"l", "\u2003"}}, "{}"},
      {"a blank synonym", {{"r", "\u00A0"}}, "{}"},
      {"blank where it is a value", {{"b", " "}}, "{b: ' '}"},
      {"a blank synonym where it is a value", {{"d", ""}}, "{b: ''} | 'd' was read as 'b' | alias"},
      {"what is no white space", {{"s", "\u200B"}}, "{s: '\\u200b'}"},
      {"an empty list and zero", {{"l", std::vector<Value>{}}, {"n", 0}}, "{l: [], n: 0}"},
      {"white space around a text stays", {{"s", " a "}}, "{s: ' a '}"}};
  expect_admitted(ToolSpec(declaration()), rows);
}

TEST(NormalizeArguments, ReadsASynonymUnlessTheParameterIsGivenToo) {
  const std::string refused = "Parameter 'n' of t must be a whole number, not ";
  const std::string m_read = " | 'm' was read as 'n'";
  const std::string m_left_out = " | 'm' was left out: 'n' was given too";
  const std::string c_left_out = " | 'c' was left out: 'n' was given too";
  const std::vector<ArgumentsRow> rows = {
      {"declared, synonym", {{"n", 5}, {"m", 7}}, "{n: 5}" + m_left_out + " | alias"},
      {"what is left out is not coerced", {{"n", 5}, {"m", "x"}}, "{n: 5}" + m_left_out + " | alias"},
      {"synonym, declared", {{"m", 5}, {"s", "a"}, {"n", 7}}, "{n: 7, s: 'a'}" + m_read + " | alias"},
      {"synonym, blank declared", {{"m", 5}, {"n", " "}}, "{n: 5}" + m_read + " | alias"},
      {"synonym, null declared", {{"m", 5}, {"n", nullptr}}, "{n: 5}" + m_read + " | alias"},
      {"blank declared, synonym", {{"n", " "}, {"m", 5}}, "{n: 5}" + m_read + " | alias"},
      {"null declared, synonym", {{"n", nullptr}, {"m", 5}}, "{n: 5}" + m_read + " | alias"},
      {"synonym, refused declared", {{"m", 5}, {"n", "x"}}, "refused: " + refused + "'x'"},
      {"refused synonym, declared", {{"m", "y"}, {"n", 5}}, "refused: " + refused + "'y'"},
      {"refused declared, refused synonym", {{"n", "x"}, {"m", "y"}}, "refused: " + refused + "'x'"},
      {"two synonyms", {{"m", 5}, {"c", 7}}, "{n: 5}" + m_read + c_left_out + " | alias"},
      {"both refused", {{"m", "x"}, {"c", "y"}}, "refused: " + refused + "'x'; " + refused + "'y'"},
      {"declared between", {{"m", 5}, {"n", 7}, {"c", 9}}, "{n: 7}" + m_read + c_left_out + " | alias"},
      {"no synonym", {{"n", 5}, {"s", "a"}}, "{n: 5, s: 'a'}"},
      {"notes in order",
       {{"m", 500}, {"r", "a"}, {"n", 200}},
       "{n: 100, s: 'a'}" + m_read +
           " | 'n' 500 is above the maximum: 100 was used | 'r' was read as 's' | 'n' 200 is "
           "above the maximum: 100 was used | alias"},
      {"problems in order",
       {{"l", 5}, {"x", 1}, {"n", "y"}, {"action", "a"}, {"s", true}},
       "refused: Parameter 'l' of t must be a list (or comma-separated text), not 5; Unknown parameter 'x' for t." +
           takes + "; " + refused + "'y'; t takes no 'action'; Parameter 's' of t must be text, not True"}};
  expect_admitted(ToolSpec(declaration()), rows);
}

TEST(NormalizeArguments, ChecksWhatTheActionNeeds) {
  ToolDeclaration tool = {.name = "t",
                          .actions = {{.name = "list", .synonyms = {"ls"}}, {.name = "read"}},
                          .params = {{.name = "p", .type = "string", .required = true},
                                     {.name = "n", .type = "integer", .required_for = {"read"}},
                                     {.name = "l", .type = "array", .required_for = {"list", "read"}}}};
  const Value empty = std::vector<Value>{};
  const std::string refused = "refused: Parameter 'n' of t must be a whole number, not 'x'; ";
  const std::vector<ArgumentsRow> rows = {
      {"all of it", {{"action", "read"}}, "refused: t 'read' needs 'p'; t 'read' needs 'n'; t 'read' needs 'l'"},
      {"of the declared action", {{"action", "LS"}, {"p", " "}}, "refused: t 'list' needs 'p'; t 'list' needs 'l'"},
      {"no list", {{"l", empty}, {"n", 0}, {"p", "a"}, {"action", "read"}}, "refused: t 'read' needs 'l'"},
      {"refused", {{"action", "read"}, {"p", "a"}, {"n", "x"}, {"l", "b"}}, refused + "t 'read' needs 'n'"},
      {"without an action nothing", {{"n", 1}}, "refused: t needs an 'action': one of list, read"},
      {"with a refused one neither", {{"action", "x"}}, "refused: Unknown action 'x' for t: one of list, read"}};
  expect_admitted(ToolSpec(tool), rows);
  tool.actions.clear();
  expect_admitted(ToolSpec(tool),
                  {{"a tool without actions", {}, "refused: t needs 'p'"},
                   {"and a refused one", {{"action", "x"}}, "refused: t takes no 'action'; t needs 'p'"},
                   {"what it needs", {{"p", "a"}}, "{p: 'a'}"}});
}

TEST(NormalizeArguments, TakesManyParameters) {
  ToolDeclaration wide = {.name = "wide"};
  ArgumentMap given = {{"s39", 39}};
  std::string expected = "{p39: 139";
  for (int number = 0; number < 40; ++number) {
    const std::string digits = std::to_string(number);
    wide.params.push_back({.name = "p" + digits, .type = "integer", .synonyms = {"s" + digits}, .required = true});
    given.set("p" + digits, 100 + number);
    expected += number == 39 ? "" : ", p" + digits + ": " + std::to_string(100 + number);
  }
  given.set("s38", "x");
  expected += "} | 's39' was read as 'p39' | 's38' was left out: 'p38' was given too | alias";
  expect_admitted(ToolSpec(wide), {{"every place is kept apart", given, expected}});
}

TEST(NormalizeArguments, FindsAToolByItsName) {
  TOOLS.add(declaration());
  const auto by_name = [](std::string_view tool) {
    return outcome_of([&] { return normalize_arguments(tool, {{"zzz", 1}, {"r", "a"}}); });
  };
  EXPECT_EQ(by_name("t"), "refused: Unknown parameter 'zzz' for t." + takes);
  EXPECT_EQ(by_name("T"), "KeyError: no tool is named 'T'");
}

TEST(NormalizeArguments, CopiesNoContent) {
  const ArgumentMap given = {{"r", std::string(1000, 'a')}, {"l", std::vector<Value>{1, "b"}}};
  const NormalizedArguments admitted = normalize_arguments(ToolSpec(declaration()), given);
  EXPECT_EQ(admitted.arguments().find("s")->text().data(), given.find("r")->text().data());
  EXPECT_EQ(admitted.arguments().find("l")->list().data(), given.find("l")->list().data());
}

TEST(NormalizedArguments, AreEqualWhenAllThreeFieldsAre) {
  const NormalizedArguments admitted({{"a", 1}}, {"note"}, true);
  EXPECT_EQ(admitted, NormalizedArguments({{"a", 1}}, {"note"}, true));
  EXPECT_NE(admitted, NormalizedArguments({{"a", 2}}, {"note"}, true));
  EXPECT_NE(admitted, NormalizedArguments({{"a", 1}}, {"other"}, true));
  EXPECT_NE(admitted, NormalizedArguments({{"a", 1}}, {"note"}, false));
  EXPECT_EQ(NormalizedArguments({}), NormalizedArguments({}, {}, false));
}

TEST(ArgumentError, IsAValueErrorWithOneMessage) {
  static_assert(std::is_base_of_v<ValueError, ArgumentError> && std::is_base_of_v<LookupError, KeyError>);
  EXPECT_STREQ(ArgumentError("a; b").what(), "a; b");
  EXPECT_EQ(ArgumentError(std::string("a\0b", 3)).message(), std::string_view("a\0b", 3));
}

}  // namespace
}  // namespace tool_binding
