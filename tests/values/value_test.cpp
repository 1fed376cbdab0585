// SPDX-License-Identifier: MIT
#include "tool_binding/value.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/one_line.hpp"
#include "support/small_stack.hpp"

namespace tool_binding {
namespace {

const std::string long_text(1000, 'a');

TEST(Value, IsOfOneKindAndHandsOutNoOther) {
  struct Row {
    Value given;
    Kind kind;
  };
  const Row rows[] = {
      {{}, Kind::null},
      {nullptr, Kind::null},
      {false, Kind::boolean},
      {1, Kind::integer},
      {std::uint64_t{1} << 63U, Kind::integer},
      {1.0F, Kind::floating},
      {"", Kind::text},
      {long_text, Kind::text},
      {Text("a"), Kind::text},
      {std::vector<Value>{}, Kind::list},
      {ArgumentMap{}, Kind::mapping},
  };
  for (const auto& [value, kind] : rows) {
    EXPECT_EQ(value.kind(), kind) << quoted_form(value);
    const std::pair<bool, Kind> tests[] = {{value.is_null(), Kind::null},       {value.is_boolean(), Kind::boolean},
                                           {value.is_integer(), Kind::integer}, {value.is_floating(), Kind::floating},
                                           {value.is_text(), Kind::text},       {value.is_list(), Kind::list},
                                           {value.is_mapping(), Kind::mapping}};
    for (const auto& [holds, tested] : tests) {
      EXPECT_EQ(holds, tested == kind) << quoted_form(value);
    }
    const std::pair<std::string, Kind> reads[] = {
        {outcome_of([&] { return Value(value.boolean()); }), Kind::boolean},
        {outcome_of([&] { return Value(value.integer()); }), Kind::integer},
        {outcome_of([&] { return Value(value.floating()); }), Kind::floating},
        {outcome_of([&] { return Value(value.text()); }), Kind::text},
        {outcome_of([&] { return Value(value.shared_text()); }), Kind::text},
        {outcome_of([&] { return Value(std::vector<Value>(value.list().begin(), value.list().end())); }), Kind::list},
        {outcome_of([&] { return Value(value.mapping()); }), Kind::mapping},
    };
    for (const auto& [read, wanted] : reads) {
      EXPECT_EQ(wanted == kind ? read : read.substr(0, 23),
                wanted == kind ? quoted_form(value) : "TypeError: the value is");
    }
  }
}

TEST(Value, EqualsAnotherOfItsKindAndContent) {
  const auto wide = [](const char* digits) { return Value(Integer::from_decimal(digits)); };
  const double not_a_number = std::numeric_limits<double>::quiet_NaN();
  const std::vector<Value> unequal = {
      nullptr,
      true,
      false,
      1,
      0,
      1.0,
      1.5,
      "1",
      "",
      "True",
      std::string("a\0", 2),
      std::string("a\0b", 3),
      long_text,
      long_text + "a",
      wide("100000000000000000000"),
      wide("-100000000000000000000"),
      "100000000000000000000",
      std::vector<Value>{},
      std::vector<Value>{1},
      std::vector<Value>{1.0},
      std::vector<Value>{1, 2},
      std::vector<Value>{std::vector<Value>{1}, std::vector<Value>{2}},
      std::vector<Value>{std::vector<Value>{1}, std::vector<Value>{3}},
      ArgumentMap{},
      ArgumentMap{{"a", 1}},
      ArgumentMap{{"b", 1}},
      ArgumentMap{{"a", 1}, {"b", 2}},
      ArgumentMap{{"b", 2}, {"a", 1}},
      ArgumentMap{{"a", ArgumentMap{{"b", 1}}}},
      ArgumentMap{{"a", ArgumentMap{{"b", 2}}}},
  };
  for (std::size_t left = 0; left < unequal.size(); ++left) {
    for (std::size_t right = 0; right < unequal.size(); ++right) {
      EXPECT_EQ(unequal[left] == unequal[right], left == right)
          << quoted_form(unequal[left]) << " and " << quoted_form(unequal[right]);
    }
  }
  EXPECT_EQ(Value(std::string(1000, 'a')), Value(long_text));
  EXPECT_EQ(wide("100000000000000000000"), wide("100000000000000000000"));
  EXPECT_EQ(Value(0.0), Value(-0.0));
  const Value nan = not_a_number;
  const Value listed = std::vector<Value>{not_a_number};
  EXPECT_FALSE(nan == nan);
  EXPECT_FALSE(listed == listed);
}

TEST(Value, SharesWhatDoesNotStandInItself) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{14}, std::size_t{15}, std::size_t{16}}) {
    const Value value = std::string(size, 'x');
    const Value copy = value;
    EXPECT_EQ(copy.text(), std::string(size, 'x'));
    EXPECT_EQ(value.shared_text().c_str()[size], '\0');
    EXPECT_EQ(copy.text().data() == value.text().data(), size > 15) << size;
  }
  const Value list = std::vector<Value>{long_text};
  const Value copy = list;
  EXPECT_EQ(copy.list().data(), list.list().data());
  EXPECT_EQ(Value(Text(list.list()[0].shared_text())).text().data(), list.list()[0].text().data());
}

TEST(Value, SurvivesBeingAssignedAndMoved) {
  for (const Value& given : {Value("short"), Value(long_text), Value(std::vector<Value>{1, long_text}),
                             Value(Integer::from_decimal("100000000000000000000"))}) {
    Value value = given;
    Value& same = value;
    value = same;
    EXPECT_EQ(value, given);
    Value taken = std::move(value);
    EXPECT_EQ(taken, given);
    EXPECT_TRUE(value.is_null());  // NOLINT(bugprone-use-after-move): a value that was moved from is null
    value = std::move(taken);
    EXPECT_EQ(value, given);
  }
  Value nested = std::vector<Value>{std::vector<Value>{long_text}};
  nested = nested.list()[0];
  EXPECT_EQ(nested, Value(std::vector<Value>{long_text}));
  Text text = long_text;
  const Text taken = std::move(text);
  EXPECT_TRUE(text.empty() && text.view().empty());  // NOLINT(bugprone-use-after-move): likewise, empty
  Integer integer = Integer::from_decimal("100000000000000000000");
  const Integer kept = std::move(integer);
  EXPECT_EQ(integer, 0);  // NOLINT(bugprone-use-after-move): likewise, zero
}

/// `levels` of lists and mappings around `core`.
Value nested(std::size_t levels, Value core) {
  for (std::size_t level = 0; level < levels; ++level) {
    core = level % 2 == 0 ? Value(std::vector<Value>{1, std::move(core)}) : Value(ArgumentMap{{"a", std::move(core)}});
  }
  return core;
}

TEST(Value, MayBeNestedToAnyDepth) {
  on_a_small_stack([] {
    constexpr std::size_t depth = 1'000'000;
    const Value one = nested(depth, 1);
    const Value same = nested(depth, 1);
    const Value other = nested(depth, 2);
    EXPECT_TRUE(one == same);
    EXPECT_FALSE(one == other);
  });
}

TEST(Value, KeepsAPartWhenTheWholeIsDestroyed) {
  Value part;
  {
    const Value whole = std::vector<Value>{nested(10, long_text), nested(10, long_text)};
    part = whole.list()[1];
  }
  EXPECT_EQ(part, nested(10, long_text));
}

}  // namespace
}  // namespace tool_binding
