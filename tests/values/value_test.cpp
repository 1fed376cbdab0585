// SPDX-License-Identifier: MIT
#include "tool_binding/value.hpp"

#include <cmath>

#include "support/expect_rows.hpp"
#include "support/small_stack.hpp"

namespace tool_binding {
namespace {

using List = std::vector<Value>;
const std::string long_text(1000, 'a');

TEST(Value, IsOfOneKindAndHandsOutNoOther) {
  const Value one_of_each[] = {nullptr, true, 5, 2.5, long_text, List{1}, ArgumentMap{{"a", 1}}};
  for (std::size_t kind = 0; kind < std::size(one_of_each); ++kind) {
    const Value& value = one_of_each[kind];
    EXPECT_EQ(value.kind(), static_cast<Kind>(kind));
    const bool tests[] = {value.is_null(), value.is_boolean(), value.is_integer(), value.is_floating(),
                          value.is_text(), value.is_list(),    value.is_mapping()};
    const std::string reads[] = {outcome_of([&] { return Value(nullptr); }),
                                 outcome_of([&] { return Value(value.boolean()); }),
                                 outcome_of([&] { return Value(value.integer()); }),
                                 outcome_of([&] { return Value(value.floating()); }),
                                 outcome_of([&] { return Value(value.text()); }),
                                 outcome_of([&] { return Value(List(value.list().begin(), value.list().end())); }),
                                 outcome_of([&] { return Value(value.mapping()); })};
    for (std::size_t other = 1; other < std::size(one_of_each); ++other) {
      EXPECT_EQ(tests[other], other == kind) << quoted_form(value);
      EXPECT_EQ(reads[other].starts_with("TypeError"), other != kind) << reads[other];
    }
    EXPECT_EQ(reads[kind], quoted_form(value));
  }
  EXPECT_EQ(Value(std::uint64_t{1} << 63U).kind(), Kind::integer);
  EXPECT_EQ(Value(Text("a")).kind(), Kind::text);
  EXPECT_EQ(outcome_of([] { return Value(Value("5").integer()); }), "TypeError: the value is text '5', not an integer");
  EXPECT_EQ(outcome_of([] { return Value(Value(List{5}).shared_text()); }), "TypeError: the value is a list, not text");
  EXPECT_EQ(outcome_of([] { return Value(Value(long_text).mapping()); }),
            "TypeError: the value is text, not an object");
}

TEST(Value, EqualsAnotherOfItsKindAndContent) {
  List unequal = {nullptr, true, false, 1, 0, 1.0, 1.5, "1", "", "True", long_text, long_text + "a"};
  for (const char* digits : {"100000000000000000000", "-100000000000000000000", "100000000000000000001"}) {
    unequal.insert(unequal.end(), {Value(Integer::from_decimal(digits)), Value(digits)});
  }
  for (std::size_t index = unequal.size(); index-- > 0;) {
    const Value leaf = unequal[index];
    unequal.insert(unequal.end(), {Value(List{leaf}), Value(List{0, List{leaf}}), Value(ArgumentMap{{"a", leaf}}),
                                   Value(ArgumentMap{{"b", leaf}}), Value(ArgumentMap{{"a", 0}, {"b", List{leaf}}}),
                                   Value(ArgumentMap{{"b", List{leaf}}, {"a", 0}})});
  }
  for (std::size_t left = 0; left < unequal.size(); ++left) {
    for (std::size_t right = 0; right < unequal.size(); ++right) {
      EXPECT_EQ(unequal[left] == unequal[right], left == right)
          << quoted_form(unequal[left]) << " and " << quoted_form(unequal[right]);
    }
  }
  EXPECT_EQ(Value(std::string(1000, 'a')), Value(long_text));
  EXPECT_NE(Value(std::string("a\0", 2)), Value("a"));
  EXPECT_EQ(Value(0.0), Value(-0.0));
  const Value nan = List{std::nan("")};
  EXPECT_FALSE(nan == nan || nan.list()[0] == nan.list()[0]);
}

TEST(Value, SharesWhatDoesNotStandInItself) {
  for (std::size_t size = 0; size < 40; ++size) {
    const Value value = std::string("0123456789abcdefghijklmnopqrstuvwxyz????", size);
    const Value copy = value;
    EXPECT_EQ(copy.text(), std::string("0123456789abcdefghijklmnopqrstuvwxyz????", size));
    EXPECT_EQ(value.shared_text().c_str()[size], '\0');
    EXPECT_EQ(copy.text().data() == value.text().data(), size > 15) << size;
  }
  const Value list = List{long_text};
  const Value copy = list;
  EXPECT_EQ(copy.list().data(), list.list().data());
  EXPECT_EQ(Value(Text(list.list()[0].shared_text())).text().data(), list.list()[0].text().data());
}

TEST(Value, SurvivesBeingAssignedAndMoved) {
  for (const Value& given : {Value("short"), Value(long_text), Value(List{1, long_text}),
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
  Value nested = List{Value(List{long_text})};
  nested = nested.list()[0];
  EXPECT_EQ(nested, Value(List{long_text}));
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
    core = level % 2 == 0 ? Value(List{1, std::move(core)}) : Value(ArgumentMap{{"a", std::move(core)}});
  }
  return core;
}

TEST(Value, MayBeNestedToAnyDepth) {
  on_a_small_stack([] {
    Value part;
    {
      const Value one = nested(1'000'000, long_text);
      const Value same = nested(1'000'000, long_text);
      EXPECT_TRUE(one == same);
      EXPECT_FALSE(one == nested(1'000'000, "other"));
      part = List{one, nested(10, long_text)}.back();
    }
    EXPECT_EQ(part, nested(10, long_text));
  });
}

}  // namespace
}  // namespace tool_binding
