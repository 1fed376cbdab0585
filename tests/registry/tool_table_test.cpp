// SPDX-License-Identifier: MIT
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

std::string name_in(const ToolTable& tools, std::string_view name) {
  return outcome_of([&] { return Value(tools[name].name()); });
}

TEST(ToolTable, HoldsToolsInDeclaredOrder) {
  ToolTable tools;
  EXPECT_EQ(name_in(tools, "search"), "KeyError: no tool is named 'search'");
  EXPECT_TRUE(tools.find("search") == nullptr && tools.all().empty());
  for (const char* name : {"search", "files", "a tool whose name is long", "abc", "abd", "abe", "abf", "abg", "abh"}) {
    tools.add({.name = name});
  }
  EXPECT_EQ(tools.all().size(), 9U);
  for (const ToolSpec& tool : tools.all()) {
    EXPECT_EQ(&tools[tool.name()], &tool);
  }
  EXPECT_THROW((void)tools["files "], UnknownToolError) << "which an unknown type word is not";
  EXPECT_EQ(name_in(tools, "a tool whose name is lonG"), "KeyError: no tool is named 'a tool whose name is lonG'");
}

TEST(ToolTable, FindsEachOfManyTools) {
  ToolTable tools;
  for (int number = 0; number < 1000; ++number) {
    tools.add({.name = "a tool whose name is long " + std::to_string(number)});
  }
  for (int number = 0; number < 2000; ++number) {
    const ToolSpec* const tool = tools.find("a tool whose name is long " + std::to_string(number));
    EXPECT_EQ(tool, number < 1000 ? &tools.all()[std::size_t(number)] : nullptr) << number;
  }
}

TEST(ToolTable, KeepsRecordsWhereTheyAre) {
  ToolTable tools;
  tools.add({.name = "first", .params = {{.name = "p", .type = "string"}}});
  const ToolSpec& first = tools["first"];
  const auto& all = tools.all();
  for (int number = 0; number < 1000; ++number) {
    tools.add({.name = std::to_string(number)});
  }
  EXPECT_EQ(&first, tools.find("first"));
  EXPECT_EQ(&first, &all[0]);
  EXPECT_EQ(first.params()[0].name, "p");
  EXPECT_EQ(all.size(), 1001U);
}

TEST(ToolTable, AddsSeveralToolsOrNone) {
  ToolTable tools;
  const auto add = [&](const std::vector<ToolSpec>& several) { return tools.add(several), Value(); };
  const ToolSpec a({.name = "a"});
  const ToolSpec b({.name = "b"});
  (void)add({a, b});
  EXPECT_EQ(outcome_of([&] {
              return add({ToolSpec({.name = "c"}), a});
            }),
            "ValueError: a tool named 'a' is already declared");
  EXPECT_EQ(outcome_of([&] {
              return add({ToolSpec({.name = "c"}), ToolSpec({.name = "c"})});
            }),
            "ValueError: a tool named 'c' is already declared");
  EXPECT_EQ(name_in(tools, "c"), "KeyError: no tool is named 'c'");
  EXPECT_EQ(name_in(tools, "b"), "'b'");
  EXPECT_EQ(tools.all().size(), 2U);
}

TEST(ToolTable, RefusesANameThatItHolds) {
  ToolTable tools;
  tools.add({.name = "search", .description = "first"});
  const auto add = [&] { return tools.add({.name = "search"}), Value(); };
  EXPECT_EQ(outcome_of(add), "ValueError: a tool named 'search' is already declared");
  EXPECT_EQ(tools["search"].description(), "first");
  EXPECT_EQ(tools.all().size(), 1U);
}

std::atomic<bool> answering = false;

/// Made before TOOLS would be and destroyed after it: what a thread does meanwhile, it does beside a registry whose
/// turn has come.
const struct LateToEnd {
  ~LateToEnd() { std::this_thread::sleep_for(std::chrono::milliseconds(answering ? 50 : 0)); }
} late_to_end;

void answer_forever() {
  for (;;) {
    if (!normalize_arguments("answering", {{"limit", "5"}}).arguments().contains("limit")) {
      std::abort();
    }
    answering = true;
  }
}

TEST(Tools, LastWhileThreadsAnswerAndTheProcessEnds) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto end_while_answering = [] {
    TOOLS.add({.name = "answering", .params = {{.name = "limit", .type = "integer"}}});
    std::thread(answer_forever).detach();
    std::thread(answer_forever).detach();
    while (!answering) {
      std::this_thread::yield();
    }
    std::exit(0);
  };
  EXPECT_EXIT(end_while_answering(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tool_binding
