// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <tuple>

#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

TEST(Place, NamesAMemberShortlyWhereThatIsClear) {
  const std::pair<const char*, const char*> rows[] = {
      {"name", "t.name"},
      {"Max-size_2", "t.Max-size_2"},
      {"", "t['']"},
      {"a b", "t['a b']"},
      {"a.b", "t['a.b']"},
      {"a{", "t['a{']"},
      {"it's", "t[\"it's\"]"},
      {"a[0]", "t['a[0]']"},
      {"\u00E4", "t['\u00E4']"},
      {"a~", "t['a~']"},
  };
  for (const auto& [name, expected] : rows) {
    EXPECT_EQ(member_place("t", name), expected) << name;
    EXPECT_TRUE(stands_within(member_place("t", name), "t")) << name;
  }
  EXPECT_EQ(member_place("", "tools"), "tools");
  EXPECT_EQ(item_place(member_place("", "tools"), 12), "tools[12]");
}

TEST(Place, StandsWithinWhatIsAroundIt) {
  const std::tuple<const char*, const char*, bool> rows[] = {{"tools[0].name", "", true},
                                                             {"", "", true},
                                                             {"", "tools", false},
                                                             {"tools[0]", "tools[0]", true},
                                                             {"tools[0].name", "tools[0]", true},
                                                             {"tools[0]", "tools", true},
                                                             {"tools[0]", "tools[0].name", false},
                                                             {"tools[10]", "tools[1]", false},
                                                             {"tools[1].names", "tools[1].name", false}};
  for (const auto& [inner, outer, expected] : rows) {
    EXPECT_EQ(stands_within(inner, outer), expected) << inner << " in " << outer;
  }
}

}  // namespace
}  // namespace tool_binding
