// SPDX-License-Identifier: MIT
#include <new>

#include "allocations.hpp"
#include "support/expect_rows.hpp"
#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

const std::string long_name = "a tool whose name stands in a node";

std::string names_in(const ToolTable& tools) {
  std::string names;
  for (const ToolSpec& tool : tools.all()) {
    EXPECT_EQ(tools.find(tool.name()), &tool);
    names.append(tool.name()).append(",");
  }
  return names;
}

/// Lets each allocation of `add` fail once, in turn, until there is none left to fail: the table holds what it held.
template <class Add>
void expect_all_or_nothing(const std::string& expected, const Add& add) {
  for (const int before : {0, 3, 30, 31, 63}) {  // where rooms for 2, 8, 32 and 64 fill up
    for (std::size_t first = 0;; ++first) {
      ToolTable tools;
      for (int number = 0; number < before; ++number) {
        tools.add({.name = std::to_string(number)});
      }
      const std::string held = names_in(tools);
      bool refused = false;
      try {
        const fuzz::Refusing refusing(first, true);
        add(tools);
      } catch (const std::bad_alloc&) {
        refused = true;
      }
      EXPECT_EQ(names_in(tools), refused ? held : held + expected) << first;
      EXPECT_EQ(tools.find(long_name) == nullptr, refused) << first;
      if (!refused) {
        EXPECT_GT(first, 0U);
        break;
      }
      add(tools);
      EXPECT_EQ(names_in(tools), held + expected) << first;
    }
  }
}

TEST(ToolTable, HoldsWhatItHeldWhenAnAllocationFails) {
  expect_all_or_nothing(long_name + ",", [](ToolTable& tools) { tools.add({.name = long_name}); });
}

TEST(DeclareTools, AddsNoneWhenAnAllocationFails) {
  expect_all_or_nothing("first," + long_name + ",last,", [](ToolTable& tools) {
    (void)declare_tools(tools,
                        {{.tool = {.name = "first"}}, {.tool = {.name = long_name}}, {.tool = {.name = "last"}}});
  });
}

}  // namespace
}  // namespace tool_binding
