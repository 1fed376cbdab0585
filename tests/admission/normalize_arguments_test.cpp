// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

ToolDeclaration search_declaration() {
  return {.name = "search",
          .params = {{.name = "query", .type = "string", .synonyms = {"q"}},
                     {.name = "limit", .type = "integer", .synonyms = {"max", "count"}, .maximum = 100},
                     {.name = "body", .type = "string", .synonyms = {"content"}, .blank_is_value = true},
                     {.name = "tags", .type = "array"},
                     {.name = "repo", .type = "string", .synonyms = {"repository"}}}};
}

constexpr const char* takes = " It takes: query, limit, body, tags, repo.";

TEST(NormalizeArguments, TakesAnArgumentByTheFirstTestThatApplies) {
  expect_admitted(
      ToolSpec(search_declaration()),
      {
          {"nothing", {}, "{}"},
          {"routing names, one of them declared", {{"repo", "a"}, {"repo_root", 5}}, "{}"},
          {"a synonym of a routing name",
           {{"repository", "a"}},
           "{repo: 'a'} | 'repository' was read as 'repo' | alias"},
          {"routing names are compared exactly",
           {{"Repo", "a"}},
           std::string("ArgumentError: Unknown parameter 'Repo' for search. Did you mean 'repo'?") + takes},
          {"null, declared, undeclared, routing or action",
           {{"query", nullptr}, {"zzz", nullptr}, {"repo", nullptr}, {"action", nullptr}, {"q", nullptr}},
           "{}"},
          {"a blank action", {{"action", " \t\u3000"}}, "{}"},
          {"an undeclared name, blank",
           {{"zzz", " "}},
           std::string("ArgumentError: Unknown parameter 'zzz' for search.") + takes},
          {"a name in another case is undeclared",
           {{"Query", "a"}},
           std::string("ArgumentError: Unknown parameter 'Query' for search. Did you mean 'query'?") + takes},
          {"blank text", {{"query", ""}, {"limit", " \n"}, {"tags", "\u2003"}}, "{}"},
          {"a blank synonym", {{"q", "\u00A0"}}, "{}"},
          {"blank where it is a value", {{"body", " "}}, "{body: ' '}"},
          {"a blank synonym where it is a value",
           {{"content", ""}},
           "{body: ''} | 'content' was read as 'body' | alias"},
          {"what is no white space", {{"query", "\u200B"}}, "{query: '\\u200b'}"},
          {"an empty list and false-like values",
           {{"tags", std::vector<Value>{}}, {"limit", 0}},
           "{tags: [], limit: 0}"},
          {"a text with white space around it stays so", {{"query", " a "}}, "{query: ' a '}"},
      });
}

TEST(NormalizeArguments, ReadsASynonymUnlessTheParameterIsGivenToo) {
  const std::string refused = "ArgumentError: Parameter 'limit' of search must be a whole number, not ";
  expect_admitted(
      ToolSpec(search_declaration()),
      {
          {"declared, synonym",
           {{"limit", 5}, {"max", 7}},
           "{limit: 5} | 'max' was left out: 'limit' was given too | alias"},
          {"a synonym left out is not coerced",
           {{"limit", 5}, {"max", "x"}},
           "{limit: 5} | 'max' was left out: 'limit' was given too | alias"},
          {"synonym, declared: the place of the first",
           {{"max", 5}, {"query", "a"}, {"limit", 7}},
           "{limit: 7, query: 'a'} | 'max' was read as 'limit' | alias"},
          {"synonym, blank declared", {{"max", 5}, {"limit", " "}}, "{limit: 5} | 'max' was read as 'limit' | alias"},
          {"synonym, null declared",
           {{"max", 5}, {"limit", nullptr}},
           "{limit: 5} | 'max' was read as 'limit' | alias"},
          {"blank declared, synonym", {{"limit", " "}, {"max", 5}}, "{limit: 5} | 'max' was read as 'limit' | alias"},
          {"null declared, synonym",
           {{"limit", nullptr}, {"max", 5}},
           "{limit: 5} | 'max' was read as 'limit' | alias"},
          {"synonym, refused declared", {{"max", 5}, {"limit", "x"}}, refused + "'x'"},
          {"refused synonym, declared", {{"max", "y"}, {"limit", 5}}, refused + "'y'"},
          {"refused declared, refused synonym: the name is given all the same",
           {{"limit", "x"}, {"max", "y"}},
           refused + "'x'"},
          {"two synonyms",
           {{"max", 5}, {"count", 7}},
           "{limit: 5} | 'max' was read as 'limit' | 'count' was left out: 'limit' was given too | alias"},
          {"refused synonym, refused synonym: both are read",
           {{"max", "x"}, {"count", "y"}},
           refused + "'x'; Parameter 'limit' of search must be a whole number, not 'y'"},
          {"synonym, declared, synonym",
           {{"max", 5}, {"limit", 7}, {"count", 9}},
           "{limit: 7} | 'max' was read as 'limit' | 'count' was left out: 'limit' was given too | alias"},
          {"a declared name is no synonym", {{"limit", 5}, {"query", "a"}}, "{limit: 5, query: 'a'}"},
      });
}

TEST(NormalizeArguments, ReportsInTheOrderOfTheRequest) {
  expect_admitted(ToolSpec(search_declaration()),
                  {
                      {"notes",
                       {{"max", 500}, {"q", "a"}, {"limit", 200}},
                       "{limit: 100, query: 'a'} | 'max' was read as 'limit' | 'limit' 500 is above the maximum: 100 "
                       "was used | 'q' was read as 'query' | 'limit' 200 is above the maximum: 100 was used | alias"},
                      {"problems",
                       {{"tags", 5}, {"x", 1}, {"limit", "y"}, {"action", "a"}, {"query", true}},
                       "ArgumentError: Parameter 'tags' of search must be a list (or comma-separated text), not 5; "
                       "Unknown parameter 'x' for search. It takes: query, limit, body, tags, repo.; Parameter 'limit' "
                       "of search must be a whole number, not 'y'; search takes no 'action'; Parameter 'query' of "
                       "search must be text, not True"},
                  });
}

TEST(NormalizeArguments, ChecksWhatTheActionNeeds) {
  const ToolDeclaration files = {.name = "files",
                                 .actions = {{.name = "list", .synonyms = {"ls"}}, {.name = "read"}},
                                 .params = {{.name = "path", .type = "string", .required = true},
                                            {.name = "line", .type = "integer", .required_for = {"read"}},
                                            {.name = "tags", .type = "array", .required_for = {"list", "read"}}}};
  expect_admitted(
      ToolSpec(files),
      {
          {"all of it is missing, in the registry's order",
           {{"action", "read"}},
           "ArgumentError: files 'read' needs 'path'; files 'read' needs 'line'; files 'read' needs 'tags'"},
          {"the declared action decides",
           {{"action", "LS"}, {"path", " "}, {"line", 1}},
           "ArgumentError: files 'list' needs 'path'; files 'list' needs 'tags'"},
          {"an empty list is not given, a zero is",
           {{"tags", std::vector<Value>{}}, {"line", 0}, {"path", "a"}, {"action", "read"}},
           "ArgumentError: files 'read' needs 'tags'"},
          {"a refused value is not given, and stands first",
           {{"action", "read"}, {"path", "a"}, {"line", "x"}, {"tags", "b"}},
           "ArgumentError: Parameter 'line' of files must be a whole number, not 'x'; files 'read' needs "
           "'line'"},
          {"without an action nothing is checked",
           {{"line", 1}},
           "ArgumentError: files needs an 'action': one of list, read"},
          {"with a refused one neither",
           {{"action", "write"}},
           "ArgumentError: Unknown action 'write' for files: one of list, read"},
      });
  ToolDeclaration status = {.name = "status", .params = files.params};
  expect_admitted(
      ToolSpec(status),
      {{"a tool without actions", {}, "ArgumentError: status needs 'path'"},
       {"its refused action", {{"action", "x"}}, "ArgumentError: status takes no 'action'; status needs 'path'"},
       {"all that it needs", {{"path", "a"}}, "{path: 'a'}"}});
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
  TOOLS.add(search_declaration());
  const auto by_name = [](std::string_view tool) {
    return outcome_of([&] { return normalize_arguments(tool, {{"zzz", 1}, {"q", "a"}}); });
  };
  EXPECT_EQ(by_name("search"), std::string("ArgumentError: Unknown parameter 'zzz' for search.") + takes);
  EXPECT_EQ(by_name("Search"), "KeyError: no tool is named 'Search'");
}

TEST(NormalizeArguments, CopiesNoContent) {
  const ArgumentMap given = {{"q", std::string(1000, 'a')}, {"tags", std::vector<Value>{1, "b"}}};
  const NormalizedArguments admitted = normalize_arguments(ToolSpec(search_declaration()), given);
  EXPECT_EQ(admitted.arguments().find("query")->text().data(), given.find("q")->text().data());
  EXPECT_EQ(admitted.arguments().find("tags")->list().data(), given.find("tags")->list().data());
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
