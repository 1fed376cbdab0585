// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "admission/argument_value.hpp"
#include "compile/compiled_tool.hpp"
#include "model/difference.hpp"

/// Every way to declare one parameter, given every kind of value in every way to give one.
namespace tool_binding {
namespace {

using List = std::vector<Value>;
using Texts = std::vector<Text>;

Integer wide() { return Integer::from_decimal("1" + std::string(400, '0')); }

constexpr double inf = std::numeric_limits<double>::infinity();

/// Each kind, each spelling of each kind, and lists of them.
const List& values() {
  static const std::vector<List> kinds = {
      {{}, "", " ", "\u3000\t"},
      {true, false, "true", "True", " YES", "off", "None"},
      {0, 1, -1, 2, 5, 100, 9007199254740993, Integer::from_decimal("9223372036854775808"), wide()},
      {0.0, -0.0, 1.0, 2.5, 1e16, 1e-7, inf, -inf, std::nan("")},
      {"0", "1", " 2 ", "+5", "007", "1_0", "1__0", "\u0661", "1.0", ".5", "-1e3", "1e999", "nan", "-Infinity", "0x1"},
      {"a", "A", " a", "b ", "\u039F\u03A3", "\u0130", "it's", "a\n"},
      {"a,B", "1, 2", "[1]", "['a', \"b\"]", "[]", "\"a", "[[1]]", ","},
      {List(), List{"a"}, List{"A", " a"}, List{1}, List{"1"}, List{1, 2, 1}, List{"2", 1.0}, List{true, nullptr}},
      {List{"True", "None"}, List{"", " "}, List{List{1}}, List{ArgumentMap{{"a", 1}}}, List{"zzz", "a", 7}},
      {ArgumentMap(), ArgumentMap{{"a", 1}}}};
  static const List all = [] {
    List flat;
    for (const List& kind : kinds) {
      flat.insert(flat.end(), kind.begin(), kind.end());
    }
    return flat;
  }();
  return all;
}

/// None, words, what numbers, truth values and null look like, what lists and mappings look like, and values that are
/// hard to name.
const std::vector<Texts> enumerations = {{},
                                         {"a", "B", "A"},
                                         {"1", "2", "5", "1.0", "nan", "1e+16"},
                                         {"True", "false", "none"},
                                         {"[1]", "{'a': 1}", "[]", "[true, none]"},
                                         {"", " a", "\u03BF\u03C3", "\u039F\u03C2", "i\u0307"}};

struct Bounds {
  Value minimum;
  Value maximum;
};

const std::vector<Bounds> bounds = {{{}, {}}, {1, 5}, {0.5, {}}, {5, 2.5}, {{}, wide()}, {-inf, "5"}};

struct Type {
  Text word;
  std::optional<Text> items = {};
};

std::string name_of(const Type& type) {
  return std::string(type.word) + (type.items ? "_of_" + std::string(*type.items) : "");
}

void PrintTo(const Type& type, std::ostream* out) { *out << name_of(type); }

const std::vector<Type> types = {{"integer"}, {"number", "string"}, {"boolean"},         {"string", "string"},
                                 {"array"},   {"array", "string"},  {"array", "integer"}};

/// Whether the parameter is needed, and what stands in for it.
struct Need {
  bool required = false;
  Texts required_for = {};
  Value default_ = {};
  ArgumentMap action_defaults = {};
};

const std::vector<Need> needs = {{},
                                 {.required = true, .default_ = 7},
                                 {.required_for = {"go"}, .action_defaults = {{"go", "a"}, {"stop", nullptr}}},
                                 {.required_for = {"stop"}, .default_ = List{"a"}}};

model::Tool tool_with(ParamSpec param, const Need& need, bool blank_is_value) {
  param.required = need.required;
  param.required_for = need.required_for;
  param.default_ = need.default_;
  param.action_defaults = need.action_defaults;
  param.blank_is_value = blank_is_value;
  return {{.name = "t", .actions = {{"go"}, {"stop"}}, .default_action = "go", .params = {param}}};
}

/// The requests that give `value`: by name, by synonym, by both in either order, and by two synonyms.
std::vector<ArgumentMap> requests_of(const Value& value, const Value& other) {
  return {{{"p", value}},
          {{"q", value}},
          {{"p", value}, {"q", other}},
          {{"q", value}, {"p", other}},
          {{"q", value}, {"r", other}}};
}

void expect_alike(const std::string& difference) { EXPECT_TRUE(difference.empty()) << difference; }

/// Asks `difference` about every request until it finds one.
template <class Difference>
void expect_alike(const model::Tool& tool, const Difference& difference) {
  const List& all = values();
  for (std::size_t place = 0; place < all.size() && !testing::Test::HasFailure(); ++place) {
    for (const ArgumentMap& request : requests_of(all[place], all[place * 7 % all.size()])) {
      expect_alike(difference(tool, request));
    }
  }
}

/// Every declaration of a parameter of that type. A value of an enumeration is never bounded: with one, two rows of
/// bounds are enough to show it.
template <class Ask>
void for_each_declaration(const Type& type, const Ask& ask) {
  for (const Texts& enumeration : enumerations) {
    for (const Bounds& bound : std::span(bounds).first(enumeration.empty() ? bounds.size() : 2)) {
      ask(ParamSpec{.name = "p",
                    .type = type.word,
                    .synonyms = {"q", "r"},
                    .items_type = type.items,
                    .enum_ = enumeration,
                    .minimum = bound.minimum,
                    .maximum = bound.maximum});
    }
  }
}

class OneParameterOfType : public testing::TestWithParam<Type> {};

TEST_P(OneParameterOfType, IsAdmittedAsTheModelHasIt) {
  for_each_declaration(GetParam(), [](const ParamSpec& param) {
    for (const Need& need : needs) {
      for (const bool blank_is_value : {false, true}) {
        expect_alike(tool_with(param, need, blank_is_value), model::difference_in_admission);
      }
    }
  });
}

/// The way to the keywords at once differs by what is stored and what is bound, not by how a value is read.
TEST_P(OneParameterOfType, IsCalledWithAsTheModelHasIt) {
  for (const Need& need : needs) {
    expect_alike(tool_with({.name = "p", .type = GetParam().word, .synonyms = {"q", "r"}}, need, false),
                 model::difference_in_call);
  }
}

/// What the fast path takes as it is, the slow way takes unchanged and says nothing of it.
TEST_P(OneParameterOfType, IsTakenByTheFastPathWhereNothingIsToBeDone) {
  int taken_fast = 0;
  for_each_declaration(GetParam(), [&](const ParamSpec& param) {
    const model::Tool tool = tool_with(param, needs[0], true);
    const detail::CompiledTool& compiled = detail::compiled(tool.record);
    for (const Value& value : values()) {
      if (compiled.compiled_params[0].fast_path.takes(value)) {
        Findings findings;
        const Value taken = _coerced({compiled, compiled.compiled_params[0], param.name, value}, findings);
        EXPECT_EQ(quoted_form(taken), quoted_form(value));
        EXPECT_TRUE(findings.empty()) << findings[0].message();
        ++taken_fast;
      }
    }
  });
  EXPECT_GT(taken_fast, 0);
}

INSTANTIATE_TEST_SUITE_P(Types, OneParameterOfType, testing::ValuesIn(types),
                         [](const auto& tested) { return name_of(tested.param); });

/// A type word that is none of the five is all that matters of a parameter.
TEST(OneParameter, OfAnUnknownTypeFailsAsTheModelDoes) {
  expect_alike(tool_with({.name = "p", .type = "object", .synonyms = {"q", "r"}}, needs[1], false),
               model::difference_in_admission);
}

/// Binding reads neither type nor enumeration nor bounds.
TEST(OneParameter, IsBoundAsTheModelHasIt) {
  for (const Need& need : needs) {
    expect_alike(tool_with({.name = "p", .type = "array", .synonyms = {"q", "r"}}, need, false),
                 model::difference_in_binding);
  }
}

TEST(OneParameter, IsMissedAndHasItsDefaultAsTheModelHasIt) {
  for (std::size_t place = 0; place < 2 * needs.size(); ++place) {
    const model::Tool tool =
        tool_with({.name = "p", .type = "array", .synonyms = {"q", "r"}}, needs[place / 2], place % 2 == 1);
    for (const auto action : {std::optional<std::string_view>("go"), {"stop"}, {"Go"}, {""}, {}}) {
      expect_alike(tool, [&](const model::Tool& asked, const ArgumentMap& arguments) {
        return model::difference_in_missing(asked, action, arguments);
      });
      for (const std::string_view name : {"p", "q", "P", "it's", ""}) {
        expect_alike(model::difference_in_default(tool, name, action.value_or("")));
      }
    }
  }
}

}  // namespace
}  // namespace tool_binding
