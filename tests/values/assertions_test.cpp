// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "text/code_points.hpp"
#include "tool_binding/detail/numbers.hpp"
#include "tool_binding/registry_check.hpp"

namespace tool_binding {
namespace {

#ifdef TOOL_BINDING_ASSERTIONS

/// Calls that do not keep to what they have to, each with the condition that is named.
TEST(Assertions, EndAProgramThatBreaksAPrecondition) {
  ArgumentMap map = {{"a", 1}};
  EXPECT_DEATH(map.append("a", 2), "ordered_map.hpp:.*a precondition does not hold: .*linear_search");
  EXPECT_DEATH(map.replace_at(1, 2), "does not hold: index < size_");
  EXPECT_DEATH((void)map[1].name.size(), "does not hold: index < size_");
  EXPECT_DEATH((void)text::next_code_point(""), "does not hold: !rest.empty()");
  EXPECT_DEATH((void)compare_numbers(1, "a"), "does not hold: is_number");
  EXPECT_DEATH(RegistryError({}), "does not hold: !faults_->empty()");
}

#else

TEST(Assertions, CostNothingWhereTheyAreNotAskedFor) {
  int evaluated = 0;
  TOOL_BINDING_ASSERT(++evaluated != 0);
  EXPECT_EQ(evaluated, 0);
}

#endif

}  // namespace
}  // namespace tool_binding
