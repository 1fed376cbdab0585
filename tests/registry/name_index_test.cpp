// SPDX-License-Identifier: MIT
#include "registry/name_index.hpp"

#include <gtest/gtest.h>

#include <string>

namespace tool_binding::detail {
namespace {

TEST(NameIndex, FindsEveryNameAndNoOther) {
  NameIndex index;
  EXPECT_EQ(index.find(Text("a")), NameIndex::absent);
  EXPECT_EQ(index.find(std::string_view("a name of more than a few bytes")), NameIndex::absent);
  const auto name_of = [](std::uint32_t number) {
    return std::string(number % 40, 'x') + std::to_string(number) + std::string(number % 3, '\0');
  };
  for (std::uint32_t number = 0; number < 1000; ++number) {
    EXPECT_TRUE(index.add(name_of(number), number)) << number;
    EXPECT_FALSE(index.add(name_of(number), number + 1)) << number;
  }
  for (std::uint32_t number = 0; number < 1000; ++number) {
    const std::string name = name_of(number);
    EXPECT_EQ(index.find(Text(name)), number);
    EXPECT_EQ(index.find(std::string_view(name)), number);
    EXPECT_EQ(index.find(std::string_view(name + "y")), NameIndex::absent);
    EXPECT_EQ(index.find(Text(name + "y")), NameIndex::absent);
  }
}

}  // namespace
}  // namespace tool_binding::detail
