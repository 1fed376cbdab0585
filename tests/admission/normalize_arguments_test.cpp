// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

// Here stands what no row of a file can say.
namespace tool_binding {
namespace {

const ToolDeclaration declaration = {.name = "found",
                                     .params = {{.name = "s", .type = "string", .synonyms = {"r"}, .required = true},
                                                {.name = "n", .type = "number"},
                                                {.name = "l", .type = "array"}}};

TEST(NormalizeArguments, TakesNumbersBeyondAllDoubles) {
  const std::string nines(400, '9');
  const Integer wide = Integer::from_decimal(nines);
  expect_admitted(ToolSpec({.name = "t", .params = {{.name = "p", .type = "number"}}}),
                  {{"as a text", {{"p", nines}}, "{p: inf}"},
                   {"not after a problem either", {{"x", 1}, {"p", wide}}, "overflow_error"}});
  expect_admitted(ToolSpec({.name = "t", .params = {{.name = "p", .type = "number", .minimum = wide}}}),
                  {{"as a bound", {{"p", 5}}, "overflow_error"}});
}

TEST(NormalizeArguments, ShowsANameAsItStands) {
  const std::string odd("it's\n\0x", 7);
  expect_admitted(
      ToolSpec({.name = "t"}),
      {{"no byte of it is changed", {{odd, 1}}, "refused: Unknown parameter '" + odd + "' for t. It takes none."}});
}

TEST(NormalizeArguments, ReadsANameThatIsDeclaredTwiceAsTheFirst) {
  expect_admitted(
      ToolSpec({.name = "t", .params = {{.name = "p", .type = "integer"}, {.name = "p", .type = "string"}}}),
      {{"", {{"p", "5"}}, "{p: 5}"}});
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
  TOOLS.add(declaration);
  const auto admitted = [](std::string_view tool) { return normalize_arguments(tool, {{"s", 1}}); };
  const auto missing = [](std::string_view tool) { return missing_arguments(tool, {}, {}); };
  EXPECT_EQ(outcome_of([&] { return admitted("found"); }), "{s: '1'}");
  EXPECT_EQ(outcome_of([&] { return missing("found"); }), "found needs 's'");
  EXPECT_EQ(outcome_of([&] { return admitted("Found"); }), "KeyError: no tool is named 'Found'");
  EXPECT_EQ(outcome_of([&] { return missing("Found"); }), "KeyError: no tool is named 'Found'");
}

TEST(NormalizeArguments, CopiesNoContent) {
  const ArgumentMap given = {{"r", std::string(1000, 'a')}, {"l", std::vector<Value>{1, "b"}}};
  const NormalizedArguments admitted = normalize_arguments(ToolSpec(declaration), given);
  EXPECT_EQ(admitted.arguments().find("s")->text().data(), given.find("r")->text().data());
  EXPECT_EQ(admitted.arguments().find("l")->list().data(), given.find("l")->list().data());
}

TEST(NormalizedArguments, HandOutNotesThatOutliveThem) {
  std::string notes;
  for (const auto& note : normalize_arguments(ToolSpec(declaration), {{"r", "a"}}).notes()) {
    notes += note;
  }
  EXPECT_EQ(notes, "'r' was read as 's'");
}

TEST(MissingArguments, TakesNullForNoActionAndTheKeywordsOfAHandler) {
  const ToolSpec tool({.name = "t",
                       .actions = {{.name = "x"}},
                       .params = {{.name = "a", .type = "string", .required_for = {"x"}},
                                  {.name = "b", .type = "string", .required = true}}});
  const char* const none = nullptr;
  EXPECT_EQ(missing_arguments(tool, nullptr, ArgumentMap()), "t needs 'b'");
  EXPECT_EQ(missing_arguments(tool, none, ArgumentMap()), "t needs 'b'");
  EXPECT_EQ(missing_arguments(tool, std::nullopt, {}), "t needs 'b'");
  EXPECT_EQ(missing_arguments(tool, Text("x"), {}), "t 'x' needs 'a'; t 'x' needs 'b'");
  int item = 0;
  KeywordArguments keywords = {{"a", " "}, {"b", KeywordArgument::context(item)}};
  EXPECT_EQ(missing_arguments(tool, "x", keywords), "t 'x' needs 'a'");
  keywords.set("a", Value("given"));
  EXPECT_EQ(missing_arguments(tool, std::optional<std::string>("x"), keywords), std::nullopt);
}

TEST(NormalizedArguments, AreEqualWhenAllThreeFieldsAre) {
  const NormalizedArguments admitted({{"a", 1}}, {"note"}, true);
  EXPECT_EQ(admitted, NormalizedArguments({{"a", 1}}, {"note"}, true));
  EXPECT_NE(admitted, NormalizedArguments({{"a", 2}}, {"note"}, true));
  EXPECT_NE(admitted, NormalizedArguments({{"a", 1}}, {"other"}, true));
  EXPECT_NE(admitted, NormalizedArguments({{"a", 1}}, {"note"}, false));
  EXPECT_EQ(NormalizedArguments({}), NormalizedArguments({}, {}, false));
  NormalizedArguments source({{"a", 1}}, {"note"}, false);
  EXPECT_EQ(NormalizedArguments(std::move(source)).notes().size(), 1U);
  EXPECT_EQ(source, NormalizedArguments({}));  // NOLINT(bugprone-use-after-move): it holds nothing
}

TEST(ArgumentError, IsAValueErrorWithOneMessage) {
  static_assert(std::is_base_of_v<ValueError, ArgumentError> && std::is_base_of_v<LookupError, KeyError>);
  EXPECT_STREQ(ArgumentError("a; b").what(), "a; b");
  const ArgumentError with_zero(std::string("a\0b", 3));
  EXPECT_EQ(with_zero.message(), std::string_view("a\0b", 3));
  EXPECT_STREQ(with_zero.what(), "a");
}

}  // namespace
}  // namespace tool_binding
