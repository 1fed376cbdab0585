// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

using ParameterKind = Parameter::Kind;

TEST(HandlerKwargs, AreTheBoundArgumentsThenTheContextThatTheHandlerTakes) {
  const std::string engine = "engine";
  const std::string root = "root";
  const std::string path = "context path";
  const KeywordArguments context = {{"root", KeywordArgument::context(root)},
                                    {"engine", KeywordArgument::context(engine)},
                                    {"path", KeywordArgument::context(path)}};
  const ArgumentMap bound = {{"action", "list"}, {"path", "a"}, {"limit", nullptr}};
  const Parameter any = {"options", ParameterKind::VAR_KEYWORD};
  const Parameter rest = {"engine", ParameterKind::VAR_POSITIONAL};
  struct Row {
    const char* shows;
    std::vector<Parameter> parameters;
    std::string expected;
  };
  const std::string alone = "{action: 'list', path: 'a', limit: None}";
  const std::string whole = "{action: 'list', path: <context path>, limit: None, root: <root>, engine: <engine>}";
  const Row rows[] = {
      {"nothing declared", {}, alone},
      {"further positional values only", {rest}, alone},
      {"any keyword", {any}, whole},
      {"any keyword and positional values", {rest, any}, whole},
      {"any keyword and named ones", {any, {"limit"}, {"engine"}}, whole},
      {"what is named", {{"engine"}, {"limit"}}, "{action: 'list', path: 'a', limit: None, engine: <engine>}"},
      {"in the context's order, less what is not offered",
       {{"engine"}, {"other"}, {"root"}},
       "{action: 'list', path: 'a', limit: None, root: <root>, engine: <engine>}"},
      {"in the place of a bound argument", {{"path"}}, "{action: 'list', path: <context path>, limit: None}"},
      {"names are compared exactly", {{"Engine"}, {"options", ParameterKind::NAMED}}, alone}};
  for (const Row& row : rows) {
    const Handler handler = {{row.parameters}, {}};
    EXPECT_EQ(one_line(handler_kwargs(handler, bound, context)), row.expected) << row.shows;
    EXPECT_EQ(one_line(handler_kwargs(handler, ArgumentMap(bound), context)), row.expected) << row.shows;
    EXPECT_EQ(one_line(handler_kwargs(handler, bound, {})), alone) << row.shows;
    EXPECT_EQ(one_line(bound), alone) << row.shows;
    EXPECT_EQ(one_line(context), "{root: <root>, engine: <engine>, path: <context path>}") << row.shows;
  }
  EXPECT_EQ(one_line(handler_kwargs({{{any}}, {}}, {}, context)), one_line(context));
}

TEST(HandlerKwargs, ReachTheHandler) {
  std::size_t calls = 0;
  const Handler handler = {{{{"counter"}}}, [](const KeywordArguments& given) {
                             return Value(++given.find("counter")->item<std::size_t>() + given.size());
                           }};
  const KeywordArguments context = {{"counter", KeywordArgument::context(calls)}};
  EXPECT_EQ(handler.function(handler_kwargs(handler, {{"a", 1}}, context)), Value(3));
  EXPECT_EQ(calls, 1U);
}

struct First {
  int first = 1;
};
struct Second {
  int second = 2;
};
struct Both : First, virtual Second {};

/// The line of what happens when the item is asked for as `Item`.
template <class Item>
std::string asked_for(const KeywordArgument& argument) {
  return outcome_of([&] { return (void)argument.item<Item>(), Value(argument.is_item<Item>()); });
}

TEST(KeywordArgument, HandsAContextItemOutAsATypeThatItWasMadeWith) {
  int number = 5;
  const KeywordArgument item = KeywordArgument::context(number);
  const KeywordArgument constant = KeywordArgument::context(std::as_const(number));
  EXPECT_TRUE(&item.item<int>() == &number && &item.item<const int>() == &number);
  EXPECT_EQ(&constant.item<const int>(), &number);
  EXPECT_EQ(item.item_type_name(), "int");
  EXPECT_EQ(asked_for<int>(constant),
            "TypeError: the keyword argument is a context item of the type const int, not a context item of the type "
            "int");
  EXPECT_EQ(asked_for<int>(Value("5")),
            "TypeError: the keyword argument is the value '5', not a context item of the type int");
  EXPECT_FALSE(item.is_item<long>() || KeywordArgument(Value(5)).is_item<int>());
  EXPECT_EQ(outcome_of([&] { return item.value(); }),
            "TypeError: the keyword argument is a context item of the type int, not a value");
}

TEST(KeywordArgument, HandsAContextItemOutAsTheBasesThatItWasMadeWith) {
  Both both;
  const KeywordArgument item = KeywordArgument::context(both, bases<Second, First>);
  EXPECT_TRUE(&item.item<Both>() == &both && &item.item<First>() == &both && &item.item<const Second>() == &both);
  EXPECT_EQ(item.item<Second>().second, 2);
  EXPECT_FALSE(KeywordArgument::context(both).is_item<First>());
  const KeywordArgument constant = KeywordArgument::context(std::as_const(both), bases<Second>);
  EXPECT_TRUE(constant.is_item<const Second>() && !constant.is_item<Second>());
  EXPECT_EQ(constant.item<const Second>().second, 2);
}

TEST(Handler, IsWrittenInOnePairOfBracesAndMovedAsAWhole) {
  Handler handler{Signature::named("query", std::string("limit")), [](const KeywordArguments&) { return Value(5); }};
  const Handler taken = std::move(handler);
  handler = {Signature::any_keyword(), {}};
  EXPECT_TRUE(handler.signature.parameters.take("engine") && !taken.signature.parameters.take("engine"));
  EXPECT_TRUE(taken.signature.parameters.size() == 2 && taken.signature.parameters[1].name == "limit");
  EXPECT_EQ(taken.function({}), Value(5));
  KeywordArgument argument = Value("a text that stands in a node");
  const KeywordArgument kept = std::move(argument);
  EXPECT_TRUE(argument.value().is_null() && !kept.value().is_null());  // NOLINT(bugprone-use-after-move): a bound null
}

TEST(KeywordArgument, SharesTheOwnershipOfAnItemThatIsShared) {
  auto shared = std::make_shared<Both>();
  const std::weak_ptr<Both> watched = shared;
  auto base = KeywordArgument::context(std::move(shared), bases<Second>).shared_item<const Second>();
  EXPECT_EQ(base->second, 2);
  EXPECT_FALSE(watched.expired());
  base.reset();
  EXPECT_TRUE(watched.expired());
}

TEST(KeywordArgument, EqualsItsCopiesWhichShareTheItemUntilTheLastOneGoes) {
  auto shared = std::make_shared<std::string>("a");
  const std::weak_ptr<std::string> watched = shared;
  {
    KeywordArguments first = {{"engine", KeywordArgument::context(shared)}};
    const KeywordArguments second = first;
    EXPECT_TRUE(first == second && !(first[0].value == KeywordArgument::context(std::move(shared))));
    first = {};
    EXPECT_EQ(second[0].value.item<std::string>(), "a");
  }
  EXPECT_TRUE(watched.expired());
  EXPECT_TRUE(KeywordArgument(Value(std::string(99, 'a'))) == KeywordArgument(Value(std::string(99, 'a'))) &&
              !(KeywordArgument(Value(5)) == KeywordArgument(Value(5.0))));
  const KeywordArgument item = KeywordArgument::context(watched);
  EXPECT_TRUE(!(item == KeywordArgument(Value(5))) && !(KeywordArgument(Value(5)) == item));
}

}  // namespace
}  // namespace tool_binding
