// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"

namespace tool_binding {
namespace {

TEST(KeywordArgument, HandsAContextItemOutAsTheTypeThatItWasMadeWith) {
  int number = 5;
  const KeywordArgument item = KeywordArgument::context(number);
  const KeywordArgument constant = KeywordArgument::context(std::as_const(number));
  EXPECT_EQ(&item.item<int>(), &number);
  EXPECT_EQ(&constant.item<const int>(), &number);
  EXPECT_THROW((void)item.item<const int>(), TypeError);
  EXPECT_THROW((void)constant.item<int>(), TypeError);
  EXPECT_THROW((void)item.item<long>(), TypeError);
  EXPECT_THROW((void)item.value(), TypeError);
  EXPECT_THROW((void)KeywordArgument(Value(5)).item<int>(), TypeError);
}

TEST(KeywordArgument, SharesAnItemUntilTheLastCopyGoes) {
  auto shared = std::make_shared<std::string>("a");
  const std::weak_ptr<std::string> watched = shared;
  {
    KeywordArguments first = {{"engine", KeywordArgument::context(std::move(shared))}};
    const KeywordArguments second = first;
    first = {};
    EXPECT_EQ(second.find("engine")->item<std::string>(), "a");
  }
  EXPECT_TRUE(watched.expired());
}

TEST(KeywordArgument, EqualsAnEqualValueOrItsOwnCopies) {
  int number = 5;
  const KeywordArgument item = KeywordArgument::context(number);
  const KeywordArgument copy = item;
  EXPECT_EQ(item, copy);
  EXPECT_NE(item, KeywordArgument::context(number));
  EXPECT_NE(item, KeywordArgument(Value(5)));
  EXPECT_EQ(KeywordArgument(Value(std::string(100, 'a'))), KeywordArgument(Value(std::string(100, 'a'))));
  EXPECT_NE(KeywordArgument(Value(5)), KeywordArgument(Value(5.0)));
}

}  // namespace
}  // namespace tool_binding
