// SPDX-License-Identifier: MIT
#include "tool_binding/value.hpp"

#include <array>
#include <cmath>
#include <map>
#include <sstream>
#include <unordered_set>

#include "support/expect_rows.hpp"
#include "support/small_stack.hpp"
#include "tool_binding/format.hpp"

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
  EXPECT_EQ(outcome_of([] { return Value(Value("5").integer()); }), "TypeError: the value is text '5', not an integer");
  EXPECT_EQ(outcome_of([] { return Value(Value(List{5}).shared_text()); }), "TypeError: the value is a list, not text");
  EXPECT_EQ(outcome_of([] { return Value(Value(long_text).mapping()); }),
            "TypeError: the value is text, not an object");
}

template <class Type>
constexpr bool makes_a_value = std::constructible_from<Value, Type>;
template <class Type>
constexpr bool braces_make = requires {
  Type{{"a", 1}};
}
|| requires { Type({"a", 1}); };

// Characters are integers to C++ alone, and braces could mean a list as well as a mapping.
static_assert(makes_a_value<signed char> && makes_a_value<unsigned char> && makes_a_value<const char*>);
static_assert(!makes_a_value<char> && !makes_a_value<wchar_t> && !makes_a_value<char8_t> && !makes_a_value<char32_t>);
static_assert(!std::constructible_from<Integer, char> && !makes_a_value<std::vector<char>> && !makes_a_value<void*>);
static_assert(!makes_a_value<KeywordArgument> && !makes_a_value<KeywordArguments>);
static_assert(!braces_make<Value> && braces_make<ArgumentMap::Entry>);

TEST(Value, IsMadeOfWhatHoldsItsItems) {
  const std::vector<std::string> texts = {"a", "b"};
  const std::array<int, 2> numbers = {1, 2};
  const Value values[] = {texts,
                          std::span(numbers),
                          numbers,
                          std::vector<bool>{true},
                          std::vector<std::vector<double>>{{1}, {}},
                          std::optional(texts),
                          std::optional<int>(),
                          std::map<std::string, int>{{"b", 2}, {"a", 1}},
                          std::vector<std::pair<const char*, Value>>{{"b", 1}, {"a", nullptr}, {"b", 3}},
                          Value::list({1, "a", Value::list({})}),
                          Value::mapping({{"b", 1}, {"a", Value::list({2})}, {"b", 3}})};
  EXPECT_EQ(quoted_form(values),
            "[['a', 'b'], [1, 2], [1, 2], [True], [[1.0], []], ['a', 'b'], None, {'a': 1, 'b': 2}, "
            "{'b': 3, 'a': None}, [1, 'a', []], {'b': 3, 'a': [2]}]");
}

TEST(Value, HandsOutTheContentOfATemporaryAsAnObject) {
  const Value kept = Value::mapping({{"list", Value::list({long_text})}});
  Value shared = kept;
  static_assert(std::same_as<decltype(std::move(shared).text()), std::string> &&
                std::same_as<decltype(std::move(shared).list()), List> &&
                std::same_as<decltype(std::move(shared).mapping().at("list")), Value>);
  EXPECT_EQ(std::move(shared).mapping(), kept.mapping());
  EXPECT_TRUE(shared.is_null());  // NOLINT(bugprone-use-after-move): as whatever is moved from
  Value alone = Value::mapping({{"text", long_text}});
  const auto* const entry = &*alone.mapping().begin();
  const ArgumentMap entries = std::move(alone).mapping();
  EXPECT_EQ(&*entries.begin(), entry);
  EXPECT_EQ(Value::list({long_text, 5}).list(), (List{long_text, 5}));
  EXPECT_EQ(Value(long_text).text(), long_text);
}

TEST(Value, IsVisitedByItsKind) {
  struct KindOf {
    Kind operator()(std::nullptr_t) const { return Kind::null; }
    Kind operator()(bool) const { return Kind::boolean; }
    Kind operator()(const Integer&) const { return Kind::integer; }
    Kind operator()(double) const { return Kind::floating; }
    Kind operator()(std::string_view) const { return Kind::text; }
    Kind operator()(std::span<const Value>) const { return Kind::list; }
    Kind operator()(const ArgumentMap&) const { return Kind::mapping; }
  };
  for (const Value& value :
       {Value(), Value(true), Value(5), Value(2.5), Value("a"), Value::list({}), Value::mapping({})}) {
    EXPECT_EQ(value.visit(KindOf()), value.kind()) << value;
  }
}

TEST(Value, IsWrittenToStreamsInItsPlainForm) {
  std::ostringstream out;
  out << Value("a'b") << Text(" c ") << Value(5.0) << Value::list({"a", nullptr}) << ArgumentMap{{"a", 1}};
  out << Integer::from_decimal("100000000000000000000");
  EXPECT_EQ(out.str(), "a'b c 5.0['a', None]{'a': 1}100000000000000000000");
#ifdef __cpp_lib_format
  EXPECT_EQ(std::format("{:>3}{}{:?}{:?>2}{}", Value("a"), Text("b"), Value("c"), Value("d"), Integer(5)),
            "  ab'c'?d5");
#endif
}

std::size_t hash_of(const Value& value) { return std::hash<Value>{}(value); }

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
      EXPECT_EQ(hash_of(unequal[left]) == hash_of(unequal[right]), left == right)
          << quoted_form(unequal[left]) << " and " << quoted_form(unequal[right]);
    }
  }
  EXPECT_EQ(Value(std::string(1000, 'a')), Value(long_text));
  EXPECT_NE(Value(std::string("a\0", 2)), Value("a"));
  EXPECT_EQ(Value(0.0), Value(-0.0));
  EXPECT_EQ(hash_of(Value::list({0.0, long_text})), hash_of(Value::list({-0.0, std::string(1000, 'a')})));
  const std::unordered_set<Text> texts = {long_text, "a", std::string(1000, 'a')};
  EXPECT_TRUE(texts.size() == 2 && texts.contains("a"));
  const std::unordered_set<Integer> integers = {5, Integer::from_decimal("9" + std::to_string(INT64_MAX)),
                                                Integer::from_decimal("9" + std::to_string(INT64_MAX))};
  EXPECT_TRUE(integers.size() == 2 && integers.contains(Integer::from_decimal("5")));
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
  EXPECT_EQ(list.list()[0].shared_text().c_str(), list.list()[0].text().data());
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
      EXPECT_EQ(hash_of(one), hash_of(same));
      part = List{one, nested(10, long_text)}.back();
    }
    EXPECT_EQ(part, nested(10, long_text));
  });
}

}  // namespace
}  // namespace tool_binding
