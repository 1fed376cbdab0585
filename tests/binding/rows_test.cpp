// SPDX-License-Identifier: MIT
#include "support/walk.hpp"

namespace tool_binding {
namespace {

TEST(BindArguments, IsAsTheRowsSay) { expect_walked("bind_arguments.rows"); }

TEST(ActionDefault, IsAsTheRowsSay) {
  expect_walked("action_default.rows");
  EXPECT_EQ(outcome_of([] { return action_default("it's", "limit", "list"); }), "KeyError: no tool is named 'it's'");
}

}  // namespace
}  // namespace tool_binding
