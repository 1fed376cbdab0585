// SPDX-License-Identifier: MIT
#include "tool_binding/nlohmann/json.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "support/expect_rows.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding::nlohmann_json {
namespace {

using ::nlohmann::json;
using ::nlohmann::ordered_json;

template <class Json>
class NlohmannJson : public testing::Test {};
using BothKinds = testing::Types<json, ordered_json>;
TYPED_TEST_SUITE(NlohmannJson, BothKinds);

TYPED_TEST(NlohmannJson, KeepsEveryValueOnTheWayThereAndBack) {
  const char* const rows[] = {"null",
                              "true",
                              "0",
                              "-1",
                              "9223372036854775807",
                              "9223372036854775808",
                              "18446744073709551615",
                              "-9223372036854775808",
                              "0.1",
                              "5.0",
                              "1e300",
                              R"("")",
                              R"("a\u0000b \u00e9 and more than fifteen bytes")",
                              "[]",
                              "{}",
                              R"([1,[2.5,null],{"a":{"b":[]}}])",
                              R"({"":0,"a":[{}],"b":"c"})"};
  for (const char* const text : rows) {
    const auto given = TypeParam::parse(text);
    const Value value = to_value(given);
    EXPECT_EQ(to_json<TypeParam>(value), given) << text;
    EXPECT_EQ(to_json<TypeParam>(value).dump(), given.dump()) << text;
    EXPECT_EQ(given.template get<Value>(), value) << text;
    EXPECT_EQ(TypeParam(value), given) << text;
  }
  EXPECT_EQ(to_value(TypeParam::parse("18446744073709551615")), Value(std::numeric_limits<std::uint64_t>::max()));
  EXPECT_EQ(to_value(TypeParam::parse("5.0")).kind(), Kind::floating);
  EXPECT_TRUE(std::isnan(to_value(TypeParam(std::nan(""))).floating()));
  EXPECT_EQ(to_json<TypeParam>(Value(-INFINITY)), TypeParam(-INFINITY));
}

TYPED_TEST(NlohmannJson, TakesAnIntegerBeyond64BitsToTheNearestDouble) {
  EXPECT_EQ(to_json<TypeParam>(Integer::from_decimal("18446744073709551616")), TypeParam(18446744073709551616.0));
  EXPECT_EQ(to_json<TypeParam>(Integer::from_decimal("-9223372036854775809")), TypeParam(-9223372036854775808.0));
  EXPECT_THROW((void)to_json<TypeParam>(Integer::from_decimal("1" + std::string(400, '0'))), std::overflow_error);
}

TYPED_TEST(NlohmannJson, RefusesWhatIsNestedTooDeepInBothDirections) {
  TypeParam nested = 5;
  Value value = 5;
  for (std::size_t level = 0; level < most_levels; ++level) {
    TypeParam outer;
    (level % 2 == 0 ? outer[0] : outer["a"]) = std::move(nested);
    nested = std::move(outer);
    value = level % 2 == 0 ? Value(std::vector<Value>{value}) : Value(ArgumentMap{{"a", value}});
  }
  EXPECT_EQ(to_value(nested), value);
  EXPECT_EQ(to_json<TypeParam>(value), nested);
  const std::string refused = "ValueError: the value is nested deeper than 1000 levels";
  EXPECT_EQ(outcome_of([&] { return to_value(TypeParam::array({nested})); }), refused);
  EXPECT_EQ(outcome_of([&] { return Value(to_arguments(TypeParam::object({{"a", nested}}))); }), refused);
  EXPECT_EQ(outcome_of([&] { return Value(to_json<TypeParam>(Value(std::vector<Value>{value})).size()); }), refused);
}

TYPED_TEST(NlohmannJson, RefusesArgumentsThatAreNoObjectAndValuesThatJsonDoesNotHave) {
  const auto outcome = [](const TypeParam& given) { return outcome_of([&] { return Value(to_arguments(given)); }); };
  EXPECT_EQ(outcome(TypeParam::parse("[1]")), "TypeError: the arguments must be an object, and are of the type array");
  EXPECT_EQ(outcome(nullptr), "TypeError: the arguments must be an object, and are of the type null");
  EXPECT_EQ(outcome({{"a", TypeParam::binary({1, 2})}}), "TypeError: a value of the type binary cannot be an argument");
  EXPECT_EQ(outcome({{"a", TypeParam(TypeParam::value_t::discarded)}}),
            "TypeError: a value of the type discarded cannot be an argument");
}

TEST(NlohmannJson, AdmitsAnObjectsMembersInTheOrderThatItKeeps) {
  const ToolSpec tool({.name = "t", .params = {{.name = "a", .type = "integer"}, {.name = "z", .type = "integer"}}});
  const std::string text = R"({"z": "1", "x": 0, "a": "two"})";
  const auto refusal = [&](const ArgumentMap& arguments) {
    return outcome_of([&] { return Value(normalize_arguments(tool, arguments).arguments()); });
  };
  const std::string unknown = "Unknown parameter 'x' for t. It takes: a, z.";
  const std::string deaf = "Parameter 'a' of t must be a whole number, not 'two'";
  EXPECT_EQ(refusal(to_arguments(json::parse(text))), "refused: " + deaf + "; " + unknown);
  EXPECT_EQ(refusal(ordered_json::parse(text).get<ArgumentMap>()), "refused: " + unknown + "; " + deaf);
}

TEST(NlohmannJson, WritesKeywordsWithoutContextItems) {
  const std::string root = "/";
  const KeywordArguments keywords = {{"z", 1}, {"root", KeywordArgument::context(root)}, {"a", nullptr}};
  EXPECT_EQ(to_json<ordered_json>(keywords).dump(), R"({"z":1,"a":null})");
  EXPECT_EQ(ordered_json(ArgumentMap{{"z", 1}, {"a", true}}).dump(), R"({"z":1,"a":true})");
}

}  // namespace
}  // namespace tool_binding::nlohmann_json
