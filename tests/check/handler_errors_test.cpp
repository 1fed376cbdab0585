// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_binding.hpp"
#include "tool_binding/typed_handler.hpp"

namespace handler_errors_test {

struct Store {};
struct FileStore : Store {};

enum class Match { text, word };

constexpr auto enumerators(Match /*type*/) {
  return std::to_array<tool_binding::Enumerator<Match>>({{"text", Match::text}, {"word", Match::word}});
}

}  // namespace handler_errors_test

namespace tool_binding {
namespace {

using handler_errors_test::FileStore;
using handler_errors_test::Match;
using handler_errors_test::Store;

/// A line for each error of a handler that takes what is listed.
template <class... Listed>
std::string errors_of(const ToolDeclaration& tool, const Listed&... listed) {
  static FileStore store;
  static const KeywordArguments offered = {{"store", KeywordArgument::context(store, bases<Store>)},
                                           {"file", KeywordArgument::context(store)},
                                           {"root", Value("/")}};
  const Handler taking = handler([](const auto&...) { return 0; }, listed...);
  std::string lines;
  for (const RegistryFinding& finding : registry_errors(std::vector<RegistryEntry>{{tool, taking}}, &offered)) {
    EXPECT_TRUE(is_error(finding.kind)) << finding.place;
    if (finding.place.starts_with("tools[0].handler")) {
      lines += (lines.empty() ? "" : "\n") + finding.place.substr(sizeof "tools[0].handler" - 1) + ": " + finding.words;
    }
  }
  return lines.empty() ? "none" : lines;
}

/// The same for the one parameter of a tool that is taken as `Type`, without its place.
template <class Type>
std::string errors_as(const ParamSpec& param) {
  const std::string lines = errors_of({.name = "t", .params = {param}}, argument<Type>(param.name));
  const std::string place = ".parameters[0]: ";
  return lines.starts_with(place) ? lines.substr(place.size()) : lines;
}

TEST(HandlerErrors, NameATypeThatDoesNotTakeWhatItsParameterIsGivenAs) {
  struct Row {
    std::string (*errors_as)(const ParamSpec&);
    ParamSpec param;
    std::string expected;
  };
  const Row rows[] = {
      {errors_as<int>, {.name = "p", .type = "integer", .default_ = 5}, "none"},
      {errors_as<double>, {.name = "p", .type = "integer", .required = true}, "none"},
      {errors_as<float>, {.name = "p", .type = "number", .default_ = 1}, "none"},
      {errors_as<Value>, {.name = "p", .type = "array"}, "none"},
      {errors_as<int>, {.name = "p", .type = "no type word"}, "none"},
      {errors_as<std::string>,
       {.name = "p", .type = "integer", .default_ = 5},
       "'p' is given as a whole number but taken as std::string: write argument<int>(\"p\")"},
      {errors_as<int>,
       {.name = "p", .type = "number"},
       "'p' is given as a number but taken as int: write argument<std::optional<double>>(\"p\")"},
      {errors_as<int>,
       {.name = "p", .type = "integer", .enum_ = {"1", "2"}, .required = true},
       "'p' is given as text but taken as int: write argument<std::string>(\"p\")"},
      {errors_as<std::vector<int>>,
       {.name = "p", .type = "array", .items_type = "string"},
       "'p' is given as a list of texts but taken as std::vector<int>: write "
       "argument<std::optional<std::vector<std::string>>>(\"p\")"},
      {errors_as<std::vector<int>>, {.name = "p", .type = "array", .required = true}, "none"},
      {errors_as<bool>,
       {.name = "p", .type = "boolean"},
       "'p' is null where a call leaves it out: write argument<std::optional<bool>>(\"p\"), or declare a default"},
      {errors_as<std::int8_t>,
       {.name = "p", .type = "integer", .default_ = 500},
       "'p' can be 500, but signed char takes only a whole number from -128 to 127"},
      {errors_as<Match>, {.name = "p", .type = "string", .enum_ = {"word"}, .default_ = "word"}, "none"},
      {errors_as<std::optional<std::vector<Match>>>, {.name = "p", .type = "array", .enum_ = {"word"}}, "none"},
      {errors_as<Match>,
       {.name = "p", .type = "string", .required = true},
       "'p' can be any text, but handler_errors_test::Match takes only one of: text, word: declare these as the values "
       "allowed"},
      {errors_as<std::vector<Match>>,
       {.name = "p", .type = "array", .enum_ = {"text", "line"}, .required = true},
       "'line' may be sent, but handler_errors_test::Match takes only one of: text, word"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.errors_as(row.param), row.expected);
  }
}

TEST(HandlerErrors, KnowWhichCallLeavesAParameterNull) {
  const auto errors = [](const ParamSpec& limit) {
    return errors_of({.name = "t", .actions = {{.name = "find"}, {.name = "list"}}, .params = {limit}},
                     argument<Match>("action"), argument<int>("limit"));
  };
  const std::string actions =
      ".parameters[0]: 'find' may be sent, but handler_errors_test::Match takes only one of: text, word\n"
      ".parameters[0]: 'list' may be sent, but handler_errors_test::Match takes only one of: text, word";
  const auto null_for = [&](const std::string& action) {
    return actions + "\n.parameters[1]: 'limit' is null where a call of '" + action +
           "' leaves it out: write argument<std::optional<int>>(\"limit\"), or declare a default";
  };
  EXPECT_EQ(errors({.name = "limit", .type = "integer"}), null_for("find"));
  EXPECT_EQ(errors({.name = "limit", .type = "integer", .required_for = {"find"}}), null_for("list"));
  EXPECT_EQ(errors({.name = "limit", .type = "integer", .action_defaults = {{"find", 20}}}), null_for("list"));
  EXPECT_EQ(errors({.name = "limit", .type = "integer", .default_ = 5, .action_defaults = {{"find", nullptr}}}),
            null_for("find"));
  EXPECT_EQ(errors({.name = "limit", .type = "integer", .required_for = {"find", "list"}}), actions);
  EXPECT_EQ(errors({.name = "limit", .type = "integer", .action_defaults = {{"find", 20}}, .required_for = {"list"}}),
            actions);
}

TEST(HandlerErrors, NameWhatIsListedAndNotDeclaredOrOfferedAndTheOtherWayRound) {
  const ToolDeclaration tool = {.name = "t",
                                .actions = {{.name = "find"}},
                                .params = {{.name = "query", .type = "string"}, {.name = "file", .type = "string"}}};
  EXPECT_EQ(errors_of(tool, argument<std::string>("action"), argument<std::optional<std::string>>("query"),
                      item<Store>("store"), item<const FileStore>("file"), argument<std::string>("root")),
            "none");
  EXPECT_EQ(errors_of(tool, rest()), "none");
  EXPECT_EQ(errors_of(tool, argument<int>("actoin"), item<Store>("stroe"), item<Store>("engines"), rest()),
            ".parameters[0]: 'actoin' is not a declared parameter; did you mean 'action'?\n"
            ".parameters[1]: 'stroe' is not a context item that the daemon offers; did you mean 'store'?\n"
            ".parameters[2]: 'engines' is not a context item that the daemon offers");
  EXPECT_EQ(errors_of(tool, argument<std::string>("action")),
            ": does not list 'query', which the tool declares: list argument<std::optional<std::string>>(\"query\"), "
            "or rest()\n"
            ": does not list 'file', which the tool declares: list argument<std::optional<std::string>>(\"file\"), "
            "or rest()");
  const std::string advice = ": take what is offered, or offer it with bases<> of what is taken";
  EXPECT_EQ(
      errors_of(tool, item<Store>("file"), item<Store>("root"), argument<std::string>("store"), argument<int>("root"),
                rest()),
      ".parameters[3].name: 'root' is already declared at tools[0].handler.parameters[1].name\n"
      ".parameters[0]: 'file' is offered as handler_errors_test::FileStore but taken as "
      "handler_errors_test::Store" +
          advice + "\n.parameters[1]: 'root' is offered as a value but taken as handler_errors_test::Store" + advice +
          "\n.parameters[2]: 'store' is offered as handler_errors_test::FileStore but taken as std::string" + advice +
          "\n.parameters[3]: 'root' can be '/', but int takes only a whole number from -2147483648 to 2147483647");
}

TEST(HandlerErrors, KeepAToolFromBeingDeclared) {
  const auto entries = [] {
    return std::vector<RegistryEntry>{
        {.tool = {.name = "t",
                  .actions = {{.name = "find"}},
                  .default_action = "find",
                  .params = {{.name = "limit", .type = "integer", .action_defaults = {{"find", 20}}}}},
         .handler = handler([](std::string_view, int limit, const Store&) { return limit; },
                            argument<std::string_view>("action"), argument<int>("limit"), item<const Store>("store"))}};
  };
  const Store store;
  const KeywordArguments offered = {{"store", KeywordArgument::context(store)}};
  ToolTable tools;
  EXPECT_THROW((void)declare_tools(tools, entries(), {}), RegistryError);
  EXPECT_TRUE(tools.all().empty());
  EXPECT_TRUE(registry_warnings(entries()).empty());
  const Handlers handlers = declare_tools(tools, entries(), offered);
  const Handler& declared = *handlers.find("t");
  const ArgumentMap bound = bind_arguments(tools["t"], {});
  EXPECT_EQ(declared.function(handler_kwargs(declared, bound, offered)), Value(20));
}

}  // namespace
}  // namespace tool_binding
