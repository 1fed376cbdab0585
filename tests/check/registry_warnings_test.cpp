// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

const Signature any_keyword = {{{.name = "keywords", .kind = Parameter::Kind::VAR_KEYWORD}}};

std::string lines_for(const std::vector<Finding>& findings) {
  std::string lines;
  for (const Finding& finding : findings) {
    lines += finding.place + ": " + finding.words + "\n";
  }
  return lines;
}

std::string warnings_of(const ToolDeclaration& tool, const Signature& signature = any_keyword) {
  return lines_for(registry_warnings(std::vector<RegistryEntry>{{tool, {.signature = signature, .function = {}}}}));
}

struct ParamRow {
  const char* shows;
  ParamSpec param;
  std::string expected;  ///< each line stands behind "tools[0].params[0]."
};

void expect_warnings(const std::vector<ParamRow>& rows) {
  for (const ParamRow& row : rows) {
    const std::string warnings = warnings_of({.name = "t", .params = {row.param}});
    std::string expected;
    for (std::size_t begin = 0; begin < row.expected.size(); begin = row.expected.find('\n', begin) + 1) {
      expected += "tools[0].params[0]." + row.expected.substr(begin, row.expected.find('\n', begin) + 1 - begin);
    }
    EXPECT_EQ(warnings, expected) << row.shows;
  }
}

TEST(RegistryWarnings, DoubtBounds) {
  const std::string idle = " never acts: the enumeration says what is allowed\n";
  expect_warnings({
      {"equal bounds", {.name = "p", .type = "integer", .minimum = 5, .maximum = 5}, ""},
      {"crossed", {.name = "p", .type = "integer", .minimum = 5, .maximum = 4}, "minimum: 5 is above the maximum 4\n"},
      {"crossed by less than a double tells",
       {.name = "p",
        .type = "number",
        .minimum = Integer::from_decimal("9007199254740993"),
        .maximum = 9007199254740992.0},
       "minimum: 9007199254740993 is above the maximum 9007199254740992.0\n"},
      {"crossed, the other way round",
       {.name = "p", .type = "number", .minimum = 0.5, .maximum = 0},
       "minimum: 0.5 is above the maximum 0\n"},
      {"crossed fractions",
       {.name = "p", .type = "number", .minimum = 0.5, .maximum = 0.25},
       "minimum: 0.5 is above the maximum 0.25\n"},
      {"no number",
       {.name = "p", .type = "number", .minimum = NAN, .maximum = 1},
       "minimum: nan never acts: every number is within it\n"},
      {"of an enumeration",
       {.name = "p", .type = "integer", .enum_ = {"1", "2"}, .minimum = 2, .maximum = 1},
       "minimum: 2" + idle + "maximum: 1" + idle},
  });
}

TEST(RegistryWarnings, DoubtDefaults) {
  expect_warnings({
      {"null is a parameter left out", {.name = "p", .type = "integer", .action_defaults = {{"a", nullptr}}}, ""},
      {"no number", {.name = "p", .type = "number", .default_ = NAN}, ""},
      {"required", {.name = "p", .type = "string", .default_ = "x", .required = true}, ""},
      {"refused",
       {.name = "p", .type = "integer", .default_ = "ten"},
       "default: 'ten' would be refused if it were sent: Parameter 'p' of t must be a whole number, not 'ten'\n"},
      {"of another kind",
       {.name = "p", .type = "number", .default_ = 1},
       "default: 1 would become 1.0 if it were sent\n"},
      {"beyond a bound, for one action",
       {.name = "p", .type = "integer", .maximum = 9, .action_defaults = {{"a", 9}, {"b", 10}}},
       "action_defaults.b: 10 would become 9 if it were sent\n"},
      {"blank",
       {.name = "p", .type = "string", .default_ = ""},
       "default: '' would be left out, as blank text is, if it were sent\n"},
      {"blank, which is a value", {.name = "p", .type = "string", .default_ = "", .blank_is_value = true}, ""},
      {"spelled otherwise",
       {.name = "p", .type = "string", .enum_ = {"Fast"}, .default_ = "fast"},
       "default: 'fast' would become 'Fast' if it were sent\n"},
      {"beyond any double",
       {.name = "p", .type = "number", .default_ = Integer::from_decimal("1" + std::string(400, '0'))},
       "default: 1" + std::string(400, '0') +
           " would be refused if it were sent: the integer is too large for a floating number\n"},
      {"errors are not doubted", {.name = "p", .type = "text", .default_ = 1}, ""},
      {"nor are values by a bound that is none", {.name = "p", .type = "integer", .minimum = "1", .default_ = "x"}, ""},
  });
}

TEST(RegistryWarnings, DoubtEnumerations) {
  const std::string never = " can never be matched: ";
  expect_warnings({
      {"good ones", {.name = "p", .type = "string", .enum_ = {"a b", "\xC3\x84rger", "stra\xC3\x9F\x65"}}, ""},
      {"white space around",
       {.name = "p", .type = "string", .enum_ = {"a", "b "}},
       "enum[1]: 'b '" + never + "an argument that says it is refused\n"},
      {"blank",
       {.name = "p", .type = "string", .enum_ = {""}},
       "enum[0]: ''" + never + "an argument that says it is left out, as blank text is\n"},
      {"differs in case alone",
       {.name = "p", .type = "string", .enum_ = {"AA", "Aa"}},
       "enum[1]: 'Aa'" + never + "it is read as 'AA', which stands earlier\n"},
      {"stands twice",
       {.name = "p", .type = "array", .enum_ = {"a", "b", "a"}},
       "enum[2]: 'a'" + never + "it is read as 'a', which stands earlier\n"},
      {"not of the type",
       {.name = "p", .type = "integer", .enum_ = {"1", "all"}},
       "enum[1]: 'all'" + never + "an argument that says it is refused\n"},
      {"not in the plain form of the type",
       {.name = "p", .type = "number", .enum_ = {"1.0", "2"}},
       "enum[1]: '2'" + never + "an argument that says it is refused\n"},
  });
}

TEST(RegistryWarnings, DoubtNames) {
  const auto kept = [](const std::string& name) {
    return ": admission keeps '" + name + "' for itself: the handler never gets what a request sends by that name\n";
  };
  expect_warnings({
      {"a name", {.name = "repo", .type = "integer", .default_ = "x"}, "name" + kept("repo")},
      {"synonyms",
       {.name = "p", .type = "integer", .synonyms = {"Action", "action", "repo_root"}},
       "synonyms[1]" + kept("action") + "synonyms[2]" + kept("repo_root")},
  });
}

TEST(RegistryWarnings, DoubtSynonymsOfActions) {
  EXPECT_EQ(
      warnings_of({.name = "t",
                   .actions = {{.name = "List", .synonyms = {"ls", "LS", " all"}},
                               {.name = "list"},
                               {.name = "read", .synonyms = {"Ls", "get", "LIST"}}}}),
      "tools[0].actions[0].synonyms[2]: ' all' can never be matched: white space around an action is ignored\n"
      "tools[0].actions[2].synonyms[0]: 'Ls' can never be matched: case is ignored, and it is read as the action "
      "'List'\n"
      "tools[0].actions[2].synonyms[2]: 'LIST' can never be matched: case is ignored, and it is read as the action "
      "'List'\n");
  EXPECT_EQ(warnings_of({.name = "t", .actions = {{.name = "a"}, {.name = "b", .synonyms = {"a"}}}}), "")
      << "a synonym that is a declared name is an error";
  EXPECT_EQ(warnings_of({.name = "t", .actions = {{.name = "a", .synonyms = {"s"}}, {.name = "b", .synonyms = {"s"}}}}),
            "")
      << "and so is one that is declared twice";
}

TEST(RegistryWarnings, DoubtHandlers) {
  const ToolDeclaration tool = {.name = "t",
                                .actions = {{.name = "a"}},
                                .params = {{.name = "p", .type = "array"}, {.name = "q", .type = "array"}}};
  EXPECT_EQ(warnings_of(tool, {{{.name = "p"}, {.name = "q", .kind = Parameter::Kind::VAR_POSITIONAL}}}),
            "tools[0].handler: takes neither 'action' nor any keyword\n"
            "tools[0].handler: takes neither 'q' nor any keyword\n");
  EXPECT_EQ(warnings_of(tool, {{{.name = "q"}, {.name = "p"}, {.name = "action"}, {.name = "engines"}}}), "");
}

}  // namespace
}  // namespace tool_binding
