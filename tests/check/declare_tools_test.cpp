// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_binding.hpp"
#include "tool_binding/tool_schemas.hpp"

namespace tool_binding {
namespace {

/// Made before `main`, and before any static object of the library would be.
const std::string refusal_before_main = [] {
  try {
    ToolTable table;
    (void)declare_tools(table, {{.tool = {.name = "t", .params = {{.name = "p", .type = "strin"}}}}});
  } catch (const RegistryError& error) {
    return std::string(error.message());
  }
  return std::string();
}();

TEST(DeclareTools, OffersTypeWordsBeforeMain) {
  EXPECT_EQ(refusal_before_main,
            "tools[0].params[0].type: must be integer, number, boolean, string or array, not 'strin'; did you mean "
            "'string'?");
}

TEST(DeclareTools, FillsTheRegistryAndHandsOutTheHandlers) {
  const Handlers handlers = declare_tools({
      {.tool = {.name = "first", .params = {{.name = "p", .type = "integer"}}},
       .handler = {.signature = Signature::named("p"),
                   .function = [](const KeywordArguments&) { return Value("one"); }}},
      {.tool = {.name = "second"}},
  });
  EXPECT_EQ(TOOLS["first"].params()[0].name, "p");
  ASSERT_EQ(handlers.size(), 2U);
  EXPECT_EQ(handlers[0].name, "first");
  EXPECT_EQ(handlers[0].value.function({}), Value("one"));
}

TEST(DeclareTools, RefusesAllOrNothingWithEveryError) {
  (void)declare_tools({{.tool = {.name = "third"}}});
  try {
    (void)declare_tools({{.tool = {.name = "fourth"}},
                         {.tool = {.name = "third", .params = {{.name = "p", .type = "float", .minimum = "1"}}}}});
    FAIL();
  } catch (const RegistryError& error) {
    EXPECT_EQ(error.message(),
              "tools[1].params[0].type: must be integer, number, boolean, string or array, not 'float'; did you mean "
              "'number'?\n"
              "tools[1].params[0].minimum: must be a number, not '1'\n"
              "tools[1].name: 'third' is already declared at an earlier call");
    EXPECT_EQ(error.faults()[0].kind, RegistryFinding::Kind::type_word);
  }
  EXPECT_EQ(TOOLS.find("fourth"), nullptr);
}

TEST(DeclareTools, FillsATableOfOnesOwn) {
  const auto entries = [](Value limit) {
    return std::vector<RegistryEntry>{
        {.tool = {.name = "own",
                  .params = {{.name = "limit", .type = "integer", .default_ = limit, .required = true}}}}};
  };
  ToolTable one;
  ToolTable other;
  EXPECT_EQ(declare_tools(one, entries(1)).size(), 1U);
  EXPECT_EQ(declare_tools(other, entries(2)).size(), 1U);
  EXPECT_EQ(TOOLS.find("own"), nullptr);
  EXPECT_THROW((void)declare_tools(one, entries(3)), RegistryError);
  for (const auto& [table, limit] : {std::pair(&one, 1), std::pair(&other, 2)}) {
    const ToolSpec& tool = (*table)["own"];
    EXPECT_EQ(action_default(tool, "limit", ""), Value(limit));
    EXPECT_EQ(bind_arguments(tool, {}), ArgumentMap({{"limit", limit}}));
    EXPECT_EQ(missing_arguments(tool, {}, {}), "own needs 'limit'");
    EXPECT_EQ(effective_action(tool, {}), Value());
  }
}

TEST(CheckRegistry, TellsErrorsFromWarnings) {
  const std::vector<RegistryEntry> entries = {{.tool = {.name = "", .params = {{.name = "repo", .type = "array"}}}}};
  const std::vector<RegistryFinding> findings = check_registry(entries);
  ASSERT_EQ(findings.size(), 3U);
  EXPECT_TRUE(is_error(findings[0].kind));
  EXPECT_FALSE(is_error(findings[1].kind));
  EXPECT_EQ(findings[2].words, "takes neither 'repo' nor arbitrary keywords");
}

}  // namespace
}  // namespace tool_binding
