// SPDX-License-Identifier: MIT
#include "pool.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace tool_binding::fuzz {
namespace {

constexpr std::string_view pool[] = {"a",       "A",
                                     " a",      "b",
                                     "action",  "limit",
                                     "limits",  "repo",
                                     "",        "1",
                                     "true",    "None",
                                     "[1]",     " ",
                                     "\u3000",  "0",
                                     "True",    "false",
                                     "1.0",     "2",
                                     "-1",      "1e3",
                                     "nan",     "-inf",
                                     "a,1",     "[1, 'a']",
                                     "[]",      "{'a': 1}",
                                     "\"a",     "it's",
                                     "1_0",     "\u0661",
                                     "\u0130",  "\u039F\u03A3",
                                     "i\u0307", "\u03BF\u03C2",
                                     "\xFF",    "repo_root",
                                     "lim",     "a much longer name than fits"};

constexpr std::string_view drawn_types[] = {"integer", "number", "boolean", "string", "array"};

const Value& draw_number(Choices& choices) {
  constexpr double inf = std::numeric_limits<double>::infinity();
  static const std::vector<Value> numbers = {0,   1,    -1,  2,      10,  1000, 0.0,         -0.0,
                                             1.0, -1.0, 2.5, 1000.0, inf, -inf, std::nan("")};
  static const std::vector<Value> seldom = {9007199254740993, 9007199254740992.0, 9.2e18,
                                            Integer::from_decimal("9223372036854775808"),
                                            Integer::from_decimal("1" + std::string(400, '0'))};
  return choices.one_of(choices.below(16) == 15 ? seldom : numbers);
}

std::string_view draw_text(Choices& choices) { return choices.one_of(pool); }

Value draw_value(Choices& choices, unsigned depth) {
  switch (choices.below(depth == 0 ? 6 : 8)) {
    case 0:
      return choices.flag() ? Value(choices.flag()) : Value();
    case 1:
    case 2:
      return draw_number(choices);
    case 6: {
      std::vector<Value> items;
      for (std::size_t count = choices.below(4); count > 0; --count) {
        items.push_back(draw_value(choices, depth - 1));
      }
      return items;
    }
    case 7: {
      ArgumentMap entries;
      for (std::size_t count = choices.below(3); count > 0; --count) {
        const std::string_view name = draw_text(choices);
        entries.set(name, draw_value(choices, depth - 1));
      }
      return entries;
    }
    default:
      return draw_text(choices);
  }
}

/// A text as it is, or as the value of another kind that is written so.
Value draw_as_written(Choices& choices, const Text& text) {
  using List = std::vector<Value>;
  static const List others = {
      nullptr, true, false, 0, 1, 2, -1, 1.0, std::nan(""), List{1}, List{1, "a"}, List(), ArgumentMap{{"a", 1}}};
  const auto other =
      std::find_if(others.begin(), others.end(), [&](const Value& value) { return plain_form(value) == text; });
  return other == others.end() || choices.flag() ? Value(text) : *other;
}

/// A value of the enumeration where there is one, and mostly one that can be read as the parameter's type.
Value draw_value_for(Choices& choices, const ParamSpec& param) {
  const std::size_t way = choices.below(8);
  if (way == 0) {
    return draw_value(choices, 2);
  }
  if (param.type == "array") {
    std::vector<Value> items;
    for (std::size_t count = choices.below(4); count > 0; --count) {
      items.push_back(param.enum_.empty() ? draw_value(choices, 1)
                                          : draw_as_written(choices, choices.one_of(param.enum_)));
    }
    return way == 1 ? Value(draw_text(choices)) : Value(items);
  }
  if (!param.enum_.empty() && way < 6) {
    return draw_as_written(choices, choices.one_of(param.enum_));
  }
  if (param.type == "boolean") {
    return choices.flag();
  }
  return param.type == "string" || way == 1 ? Value(draw_text(choices)) : draw_number(choices);
}

std::vector<Text> draw_names(Choices& choices, std::size_t most) {
  std::vector<Text> names;
  for (std::size_t count = choices.below(most + 1); count > 0; --count) {
    names.push_back(draw_name(choices));
  }
  return names;
}

/// Seldom something that is not a bound.
Value draw_bound(Choices& choices) {
  return choices.below(32) == 31 ? draw_value(choices, 1) : (choices.flag() ? draw_number(choices) : Value());
}

/// Mostly an action of the tool's.
Text draw_action_name(Choices& choices, const ToolDeclaration& tool) {
  return tool.actions.empty() || choices.below(4) == 3 ? draw_name(choices) : choices.one_of(tool.actions).name;
}

ParamSpec draw_param(Choices& choices, const ToolDeclaration& tool) {
  ParamSpec param{.name = draw_name(choices), .type = choices.one_of(drawn_types)};
  if (choices.below(64) == 63) {
    param.type = draw_text(choices);
  }
  const std::uint8_t extras = choices.byte();
  const auto has = [&](unsigned bit) { return (extras >> bit & 1U) != 0; };
  param.required = has(0) && choices.below(4) == 3;
  param.blank_is_value = has(1);
  param.synonyms = has(2) ? draw_names(choices, 3) : std::vector<Text>();
  param.enum_ = has(3) ? draw_names(choices, 4) : std::vector<Text>();
  if (has(4)) {
    param.items_type = choices.below(4) == 3 ? draw_text(choices) : "string";
  }
  if (has(5)) {
    param.minimum = draw_bound(choices);
    param.maximum = draw_bound(choices);
  }
  if (has(6)) {
    param.required_for = {draw_action_name(choices, tool)};
    param.default_ = draw_value(choices, 1);
  }
  if (has(7)) {
    const Text action = draw_action_name(choices, tool);
    param.action_defaults.set(action, draw_value(choices, 1));
  }
  return param;
}

/// What names one of the tool's actions, or any value.
Value draw_action(Choices& choices, const ToolDeclaration& tool) {
  if (tool.actions.empty() || choices.below(8) == 7) {
    return draw_value(choices, 1);
  }
  const ActionSpec& action = choices.one_of(tool.actions);
  return choices.flag() && !action.synonyms.empty() ? choices.one_of(action.synonyms) : action.name;
}

/// An argument of any name, the action, or a parameter by its name or a synonym: mostly what `tool` knows.
void draw_argument(Choices& choices, const ToolDeclaration& tool, ArgumentMap& request) {
  const std::size_t way = choices.below(16);
  if (way == 0) {
    const Text name = draw_name(choices);
    request.set(name, draw_value(choices, 2));
  } else if (way == 1 || (way < 4 && !tool.actions.empty())) {
    request.set(ACTION_PARAM, draw_action(choices, tool));
  } else if (!tool.params.empty()) {
    const ParamSpec& param = choices.one_of(tool.params);
    const Text name = way < 10 && !param.synonyms.empty() ? choices.one_of(param.synonyms) : param.name;
    request.set(name, draw_value_for(choices, param));
  }
}

}  // namespace

Text draw_name(Choices& choices) {
  const std::string_view first = draw_text(choices);
  return choices.below(8) == 7 ? Text(std::string(first).append(draw_text(choices))) : Text(first);
}

ToolDeclaration draw_tool(Choices& choices, std::string_view name) {
  ToolDeclaration tool{.name = name};
  for (std::size_t count = choices.flag() ? choices.below(4) : 0; count > 0; --count) {
    const Text action = draw_name(choices);
    tool.actions.push_back({.name = action, .synonyms = draw_names(choices, 2)});
  }
  if (choices.below(8) < (tool.actions.empty() ? 1 : 7)) {
    tool.default_action = draw_action_name(choices, tool);
  }
  // Now and then none, and now and then more names than are searched one by one.
  const std::size_t way = choices.below(16);
  for (std::size_t count = way == 15 ? 24 : (way == 14 ? 0 : 1 + way % 4); count > 0; --count) {
    tool.params.push_back(draw_param(choices, tool));
  }
  return tool;
}

std::vector<ToolDeclaration> draw_registry(Choices& choices) {
  std::vector<ToolDeclaration> tools;
  for (std::size_t count = 1 + choices.below(3); count > 0; --count) {
    const std::string name = std::string(draw_text(choices)) + std::to_string(count);
    tools.push_back(draw_tool(choices, name));
  }
  return tools;
}

ArgumentMap draw_request(Choices& choices, const ToolDeclaration& tool) {
  ArgumentMap request;
  for (std::size_t count = choices.below(16) == 15 ? 24 : choices.below(6); count > 0; --count) {
    draw_argument(choices, tool, request);
  }
  return request;
}

}  // namespace tool_binding::fuzz
