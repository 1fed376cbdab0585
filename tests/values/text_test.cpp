// SPDX-License-Identifier: MIT
#include "tool_binding/text.hpp"

#include <gtest/gtest.h>

namespace tool_binding {
namespace {

template <class Other>
void expect_compared_and_joined(const Other& a) {
  const Text text = "b";
  EXPECT_TRUE(text != a && a != text && text > a && a < text && text >= a && a <= text);
  EXPECT_TRUE(Text("a") == a && a == Text("a") && (Text("a") <=> a) == std::strong_ordering::equal);
  EXPECT_EQ(text + a, "ba");
  EXPECT_EQ(a + text, "ab");
}

TEST(Text, IsComparedAndJoinedWithWhateverItIsMadeOf) {
  expect_compared_and_joined(Text("a"));
  expect_compared_and_joined(std::string("a"));
  expect_compared_and_joined(std::string_view("a"));
  expect_compared_and_joined<const char*>("a");
  EXPECT_EQ("'" + Text("a") + "' and " + Text(std::string(20, 'b')), "'a' and " + std::string(20, 'b'));
  EXPECT_LT(Text("a"), Text(std::string("a\0", 2)));
}

}  // namespace
}  // namespace tool_binding
