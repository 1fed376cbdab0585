// SPDX-License-Identifier: MIT
#include "tool_binding/typed_handler.hpp"

#include <cfloat>
#include <cmath>
#include <string>
#include <type_traits>
#include <vector>

#include "support/expect_rows.hpp"

namespace typed_handler_test {

struct Shelf {
  virtual ~Shelf() = default;
  std::string label = "shelf";
};
struct Store : Shelf {
  int asked = 0;
};

}  // namespace typed_handler_test

namespace tool_binding {
namespace {

using typed_handler_test::Shelf;
using typed_handler_test::Store;

enum class Order { oldest, newest };

constexpr auto enumerators(Order /*type*/) {
  return std::to_array<Enumerator<Order>>({{"oldest", Order::oldest}, {"newest", Order::newest}});
}

/// What a type holds after it took a value, as a value again.
template <class Type>
Value held(const Type& taken) {
  if constexpr (requires { taken.has_value(); }) {
    return taken ? held(*taken) : Value("empty");
  } else if constexpr (requires { Value(taken); }) {
    return taken;
  } else if constexpr (std::is_enum_v<Type>) {
    return "order " + std::to_string(static_cast<int>(taken));
  } else {
    std::vector<Value> items;
    for (const auto& item : taken) {
      items.push_back(held(item));
    }
    return items;
  }
}

template <class Type>
std::string taken_as(const Value& value) {
  const ListedHandler reading = handler([](const Type& taken) { return held(taken); }, argument<Type>("p"));
  return outcome_of([&] { return reading({{"p", value}}); });
}

const Value wide = Integer::from_decimal("18446744073709551615");

TEST(TypedHandler, TakesEachTypeWithinItsRange) {
  struct Row {
    std::string (*taken)(const Value&);
    Value given;
    std::string expected;
  };
  const auto refused = [](const std::string& words) { return "refused: Parameter 'p' must " + words; };
  const auto other = [](const std::string& type, const std::string& given) {
    return "TypeError: the handler takes 'p' as " + type + ", and was given " + given;
  };
  const Row rows[] = {
      {taken_as<bool>, true, "True"},
      {taken_as<bool>, 1, other("bool", "1")},
      {taken_as<int>, INT_MIN, "-2147483648"},
      {taken_as<int>, std::int64_t{INT_MAX} + 1,
       refused("be a whole number from -2147483648 to 2147483647, not 2147483648")},
      {taken_as<int>, wide, refused("be a whole number from -2147483648 to 2147483647, not 18446744073709551615")},
      {taken_as<int>, 5.0, other("int", "5.0")},
      {taken_as<int>, "5", other("int", "'5'")},
      {taken_as<int>, nullptr, other("int", "None")},
      {taken_as<std::int8_t>, -128, "-128"},
      {taken_as<std::int8_t>, 128, refused("be a whole number from -128 to 127, not 128")},
      {taken_as<unsigned>, -1, refused("be a whole number from 0 to 4294967295, not -1")},
      {taken_as<std::uint64_t>, wide, "18446744073709551615"},
      {taken_as<std::uint64_t>, Integer::from_decimal("18446744073709551616"),
       refused("be a whole number from 0 to 18446744073709551615, not 18446744073709551616")},
      {taken_as<std::uint64_t>, Integer::from_decimal("-9223372036854775809"),
       refused("be a whole number from 0 to 18446744073709551615, not -9223372036854775809")},
      {taken_as<std::int64_t>, INT64_MIN, "-9223372036854775808"},
      {taken_as<Integer>, wide, "18446744073709551615"},
      {taken_as<double>, 0.5, "0.5"},
      {taken_as<double>, 3, "3.0"},
      {taken_as<double>, Integer::from_decimal("1" + std::string(400, '0')),
       refused("be a number, not 1" + std::string(400, '0'))},
      {taken_as<double>, "0.5", other("double", "'0.5'")},
      {taken_as<float>, 0.5, "0.5"},
      {taken_as<float>, INFINITY, "inf"},
      {taken_as<float>, std::nan(""), "nan"},
      {taken_as<float>, double{FLT_MAX}, "3.4028234663852886e+38"},
      {taken_as<float>, 1e39, refused("be a number that is not beyond 3.4028235e+38 on either side, not 1e+39")},
      {taken_as<std::string>, "a text of more than fifteen bytes", "'a text of more than fifteen bytes'"},
      {taken_as<std::string_view>, "short", "'short'"},
      {taken_as<Text>, "", "''"},
      {taken_as<Text>, 5, other("tool_binding::Text", "5")},
      {taken_as<Value>, nullptr, "None"},
      {taken_as<Order>, "newest", "'order 1'"},
      {taken_as<Order>, "Newest", refused("be one of: oldest, newest, not 'Newest'")},
      {taken_as<std::vector<std::string>>, std::vector<Value>{"a", "b"}, "['a', 'b']"},
      {taken_as<std::vector<bool>>, std::vector<Value>{true}, "[True]"},
      {taken_as<std::vector<int>>, std::vector<Value>{1, "2", 3, nullptr},
       refused("each be a whole number from -2147483648 to 2147483647, not '2'; Parameter 'p' must each be a whole "
               "number from -2147483648 to 2147483647, not None")},
      {taken_as<std::vector<std::optional<int>>>, std::vector<Value>{1, nullptr}, "[1, None]"},
      {taken_as<std::vector<std::vector<Order>>>, std::vector<Value>{Value(std::vector<Value>{"oldest"})},
       "[['order 0']]"},
      {taken_as<std::vector<std::vector<Order>>>, std::vector<Value>{"oldest"},
       refused("each be a list, each item one of: oldest, newest, not 'oldest'")},
      {taken_as<std::vector<int>>, "1", other("std::vector<int>", "'1'")},
      {taken_as<std::span<const Value>>, std::vector<Value>{1, "2"}, "[1, '2']"},
      {taken_as<std::optional<int>>, nullptr, "'empty'"},
      {taken_as<std::optional<int>>, 5, "5"},
      {taken_as<std::optional<int>>, wide,
       refused("be a whole number from -2147483648 to 2147483647, not 18446744073709551615")},
      {taken_as<std::optional<std::vector<Order>>>, std::vector<Value>{"x"},
       refused("each be one of: oldest, newest, not 'x'")},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.taken(row.given), row.expected);
  }
}

std::string list(std::string_view action, std::optional<std::string> state, const std::vector<std::string>& tags,
                 int limit, Store& store) {
  ++store.asked;
  return std::string(action) + " " + state.value_or("any") + " " + std::to_string(tags.size()) + " " +
         std::to_string(limit) + " " + store.label;
}

const auto listing = handler(list, argument<std::string_view>("action"), argument<std::optional<std::string>>("state"),
                             argument<std::vector<std::string>>("tags"), argument<int>("limit"), item<Store>("store"));

const ToolDeclaration issues = {
    .name = "issues",
    .actions = {{.name = "list"}, {.name = "count"}},
    .default_action = "list",
    .params = {{.name = "state", .type = "string"},
               {.name = "tags", .type = "array", .items_type = "string", .default_ = std::vector<Value>{}},
               {.name = "limit", .type = "integer", .default_ = 5, .action_defaults = {{"list", 20}}}}};

TEST(TypedHandler, IsCalledWithWhatItLists) {
  const ToolSpec tool(issues);
  const Handler untold = listing;
  Store store;
  const KeywordArguments context = {{"other", KeywordArgument::context(tool)},
                                    {"store", KeywordArgument::context(store)}};
  const auto answer = [&](const Handler::Function& function, const ArgumentMap& arguments) {
    const ArgumentMap bound = bind_arguments(tool, normalize_arguments(tool, arguments).arguments());
    return outcome_of([&] { return function(handler_kwargs(untold, bound, context)); });
  };
  const Handler::Function function = untold.for_tool(tool);
  EXPECT_EQ(answer(function, {}), "'list any 0 20 shelf'");
  EXPECT_EQ(answer(function, {{"action", "count"}, {"tags", "a,b"}, {"state", "open"}}), "'count open 2 5 shelf'");
  EXPECT_EQ(answer(function, {{"limit", 1LL << 40}}),
            "refused: Parameter 'limit' of issues must be a whole number from -2147483648 to 2147483647, not "
            "1099511627776");
  EXPECT_EQ(answer(untold.function, {{"limit", 7}}), "'list any 0 7 shelf'");
  EXPECT_EQ(answer(untold.function, {}), "TypeError: the handler takes 'limit' as int, and was given None");
  EXPECT_EQ(store.asked, 3);
}

TEST(TypedHandler, TellsEveryArgumentThatItsTypesCannotHold) {
  const ListedHandler both =
      handler([](std::uint8_t, std::int8_t) { return 0; }, argument<std::uint8_t>("a"), argument<std::int8_t>("b"))
          .for_tool(ToolSpec({.name = "t"}));
  EXPECT_EQ(outcome_of([&] {
              return Value(both({{"b", 300}, {"a", -1}}));
            }),
            "refused: Parameter 'a' of t must be a whole number from 0 to 255, not -1; Parameter 'b' of t must be a "
            "whole number from -128 to 127, not 300");
}

TEST(TypedHandler, NamesTheKeywordThatACallWasNotMadeFor) {
  const ListedHandler taking = handler([](int, Store&) { return 0; }, argument<int>("limit"), item<Store>("store"))
                                   .for_tool(ToolSpec({.name = "t"}));
  Shelf shelf;
  Store store;
  const auto said = [&](const KeywordArguments& keywords) {
    return outcome_of([&] { return Value(taking(keywords)); });
  };
  EXPECT_EQ(said({{"limit", 1}}), "LookupError: the handler of t takes 'store', which the call does not have");
  EXPECT_EQ(said({{"store", KeywordArgument::context(store)}}),
            "LookupError: the handler of t takes 'limit', which the call does not have");
  EXPECT_EQ(said({{"limit", 1}, {"store", 5}}),
            "TypeError: the handler of t takes 'store' as a context item of the type "
            "typed_handler_test::Store, and was given 5");
  EXPECT_EQ(said({{"limit", 1}, {"store", KeywordArgument::context(shelf)}}),
            "TypeError: the handler of t takes 'store' as a context item of the type "
            "typed_handler_test::Store, and was given a context item of the type "
            "typed_handler_test::Shelf");
  EXPECT_EQ(said({{"limit", KeywordArgument::context(shelf)}, {"store", KeywordArgument::context(store)}}),
            "TypeError: the handler of t takes 'limit' as int, and was given a context item of the type "
            "typed_handler_test::Shelf");
}

TEST(TypedHandler, TakesContextItemsAsBasesConstantsAndShares) {
  const auto store = std::make_shared<Store>();
  const KeywordArguments keywords = {{"a", KeywordArgument::context(store, bases<Shelf>)}};
  const auto address = [&](const auto& listed) { return listed(keywords); };
  EXPECT_EQ(address(handler([](Store& taken) { return &taken; }, item<Store>("a"))), store.get());
  EXPECT_EQ(address(handler([](const Shelf& taken) { return &taken; }, item<const Shelf>("a"))), store.get());
  EXPECT_EQ(address(handler([](const Store& taken) { return &taken; }, item<Store>("a"))), store.get());
  EXPECT_EQ(address(handler([](std::shared_ptr<const Shelf> taken) { return taken.use_count(); },
                            item<std::shared_ptr<const Shelf>>("a"))),
            3)
      << "the test's share, the context's and the handler's own";
}

TEST(TypedHandler, TakesTheWholeMapAndTheObjectOfAMemberFunction) {
  struct Daemon {
    int base = 40;
    [[nodiscard]] std::int64_t add(int more, const KeywordArguments& all) const {
      return base + more + static_cast<std::int64_t>(all.size());
    }
  };
  const Daemon daemon;
  const TypedHandler<double> adding =
      handler(&Daemon::add, item<const Daemon>("daemon"), argument<int>("more"), rest());
  EXPECT_EQ(adding({{"more", 1}, {"daemon", KeywordArgument::context(daemon)}, {"unlisted", "x"}}), 44.0);
  EXPECT_EQ(adding.signature().parameters[2].kind, Parameter::Kind::VAR_KEYWORD);
}

TEST(Get, TakesOneKeywordOutOfTheMap) {
  Store store;
  const KeywordArguments keywords = {
      {"limit", 5}, {"tags", std::vector<Value>{"a"}}, {"store", KeywordArgument::context(store)}};
  EXPECT_EQ(get<int>(keywords, "limit"), 5);
  EXPECT_EQ(get<std::vector<std::string_view>>(keywords, "tags").front(), "a");
  EXPECT_EQ(&get_item<Store>(keywords, "store"), &store);
  EXPECT_EQ(outcome_of([&] { return Value(get<bool>(keywords, "limit")); }),
            "TypeError: the handler takes 'limit' as bool, and was given 5");
  EXPECT_EQ(outcome_of([&] { return Value(get<bool>(keywords, "limt")); }),
            "LookupError: the handler takes 'limt', which the call does not have");
  EXPECT_EQ(outcome_of([&] { return Value(get_item<Store>(keywords, "limit").asked); }),
            "TypeError: the handler takes 'limit' as a context item of the type typed_handler_test::Store, and "
            "was given 5");
}

}  // namespace
}  // namespace tool_binding
