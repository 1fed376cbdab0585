// SPDX-License-Identifier: MIT
#include "support/expect_rows.hpp"

namespace tool_binding {
namespace {

template <class Record>
std::string name_of(const Record* found) {
  return found == nullptr ? "none" : std::string(found->name);
}

TEST(ToolSpec, FindsAParameterByItsDeclaredNameBeforeAnySynonym) {
  const Text long_name = "a declared name of some length";
  const ToolSpec tool({.name = "search",
                       .params = {{.name = "a", .type = "string", .synonyms = {"b", "shared", "its own long synonym"}},
                                  {.name = "b", .type = "string", .synonyms = {"a", "shared", "other"}},
                                  {.name = long_name, .type = "string"}}});
  const std::vector<std::pair<std::string, std::vector<Text>>> rows = {
      {"a", {"a", "shared", "its own long synonym"}},
      {"b", {"b", "other"}},
      {std::string(long_name), {long_name}},
      {"none", {"A", " a", "", "a declared name of some lengt", "its own long synonyM"}}};
  for (const auto& [expected, names] : rows) {
    for (const Text& name : names) {
      EXPECT_EQ(name_of(tool.param(name)), expected) << name.view();
    }
  }
  EXPECT_EQ(tool.param("shared"), tool.param("a"));
  EXPECT_EQ(name_of(ToolSpec({.name = "status"}).param("a")), "none");
}

TEST(ToolSpec, FindsAnActionWhateverItsCase) {
  const ToolSpec tool({.name = "files",
                       .actions = {{.name = "list", .synonyms = {"ls", "READ"}},
                                   {.name = "read", .synonyms = {"LS", "cat"}},
                                   {.name = "Read"},
                                   {.name = " spaced "},
                                   {.name = "\u039F\u03A3", .synonyms = {"\u0130"}}}});
  const std::vector<std::pair<std::string, std::vector<Value>>> rows = {
      {"list", {"list", " LIST\n", "ls", "LS", "rEAD", " read"}},
      {"read", {"read", "\u3000CAT\t"}},
      {"Read", {"Read"}},
      {" spaced ", {" spaced "}},
      {"\u039F\u03A3", {"\u03BF\u03C2", "i\u0307"}},
      {"none", {"spaced", "i", "", " ", "lis", 5, nullptr, std::vector<Value>{"list"}}}};
  for (const auto& [expected, values] : rows) {
    for (const Value& value : values) {
      EXPECT_EQ(name_of(tool.action(value)), expected) << quoted_form(value);
    }
  }
  EXPECT_EQ(name_of(ToolSpec({.name = "status"}).action("list")), "none");
}

TEST(ToolSpec, StaysWhatItWasWhenItIsMovedFrom) {
  ToolSpec tool({.name = "search", .params = {{.name = "p", .type = "string"}}});
  const ToolSpec moved = std::move(tool);
  EXPECT_EQ(tool.name(), "search");  // NOLINT(bugprone-use-after-move): such a move is a copy
  tool = ToolSpec({.name = "other"});
  EXPECT_EQ(moved.params()[0].name, "p");
  static_assert(std::is_nothrow_move_constructible_v<ToolSpec> && std::is_nothrow_move_assignable_v<ToolSpec>);
}

TEST(ParamSpec, IsRequiredByTheActionsThatNeedIt) {
  const ToolSpec tool({.name = "t",
                       .params = {{.name = "a", .type = "array", .required_for = {"x"}},
                                  {.name = "b", .type = "array", .required = true}}});
  EXPECT_EQ(tool.param_names()[1], "b");
  for (const auto action : {std::optional<std::string_view>("x"), std::optional<std::string_view>("y"), {}}) {
    EXPECT_EQ(tool.params()[0].required_by(action), action == "x");
    EXPECT_TRUE(tool.params()[1].required_by(action));
  }
  const char* const none = nullptr;
  EXPECT_FALSE(tool.params()[0].required_by(nullptr) || tool.params()[0].required_by(none));
  EXPECT_TRUE(tool.params()[0].required_by(std::optional<std::string>("x")));
}

}  // namespace
}  // namespace tool_binding
