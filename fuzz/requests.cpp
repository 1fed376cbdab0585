// SPDX-License-Identifier: MIT
#include "requests.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "tool_binding/errors.hpp"
#include "values.hpp"

namespace tool_binding::fuzz {
namespace {

constexpr std::string_view names[] = {"query",  "limit", "limits",    "max_results", "path",          "a", "abd", "abe",
                                      "action", "repo",  "repo_root", "Query",       "\u00e9t\u00e9", ""};
constexpr std::string_view type_words[] = {"integer", "number", "boolean", "string", "array"};
constexpr std::string_view allowed[] = {"Red",    "green", "GREEN",        "5", "5.0", "True",
                                        "\u0130", " x",    "\u039F\u03A3", "",  "nan"};
constexpr std::string_view action_names[] = {"find", "list", "read", "LIST", "lookup", "ls", " ", ""};

Value make_bound(Choices& choices) {
  switch (choices.below(6)) {
    case 0:
      return static_cast<int>(choices.byte()) - 128;
    case 1:
      return choices.flag() ? 2.5 : 100.0;
    case 2: {
      const Value value = make_value(choices, 0);
      return value.is_integer() || value.is_floating() ? value : Value();
    }
    default:
      return {};
  }
}

template <class Rows>
std::vector<Text> some_of(Choices& choices, const Rows& rows, std::size_t most) {
  std::vector<Text> some;
  for (std::size_t count = choices.below(most + 1); count > 0; --count) {
    some.emplace_back(choices.one_of(rows));
  }
  return some;
}

ParamSpec make_param(Choices& choices) {
  const std::uint8_t extras = choices.byte();
  const auto has = [&](unsigned bit) { return (extras >> bit & 1U) != 0; };
  ParamSpec param{.name = choices.one_of(names), .type = choices.one_of(type_words)};
  param.required = has(0);
  param.blank_is_value = has(1);
  param.synonyms = has(2) ? some_of(choices, names, 2) : std::vector<Text>();
  param.enum_ = has(3) && has(4) ? some_of(choices, allowed, 3) : std::vector<Text>();
  param.items_type = has(4) ? std::optional<Text>("string") : std::nullopt;
  if (has(5)) {
    param.minimum = make_bound(choices);
    param.maximum = make_bound(choices);
  }
  if (has(6)) {
    param.required_for = some_of(choices, action_names, 2);
    param.default_ = make_value(choices, 1);
  }
  if (has(7)) {
    param.action_defaults.set(choices.one_of(action_names), make_value(choices, 1));
  }
  return param;
}

/// A name that the tool knows, one that is near to such a one, or any.
std::string make_name(Choices& choices, const ToolDeclaration& tool) {
  const std::size_t way = choices.below(8);
  if (way == 0 || tool.params.empty()) {
    return way < 4 ? make_text(choices) : std::string(choices.one_of(names));
  }
  const ParamSpec& param = choices.one_of(tool.params);
  const bool by_synonym = way < 3 && !param.synonyms.empty();
  std::string name(by_synonym ? choices.one_of(param.synonyms) : param.name);
  if (way == 7) {
    name.insert(choices.below(name.size() + 1), 1, static_cast<char>(choices.byte()));
  }
  return name;
}

bool is_whole(const Value& bound) {
  const auto small = bound.to_int64();
  return bound.is_null() || (small && std::abs(*small) < 1'000'000) ||
         (bound.is_floating() && std::trunc(bound.floating()) == bound.floating() && std::fabs(bound.floating()) < 1e6);
}

double number(const Value& bound) { return bound.is_integer() ? bound.integer().to_double() : bound.floating(); }

bool bounds_fit(const ParamSpec& param) {
  const bool fits = is_whole(param.minimum) && is_whole(param.maximum);
  return fits && (param.minimum.is_null() || param.maximum.is_null() || number(param.minimum) <= number(param.maximum));
}

/// Whether admission keeps arguments of that name for itself.
bool is_kept(const ParamSpec& param) {
  return param.name == "repo" || param.name == REPO_ROOT_ARGUMENT || param.name == ACTION_PARAM;
}

bool is_declared_once(const std::vector<ParamSpec>& params) {
  std::vector<Text> sorted;
  for (const ParamSpec& param : params) {
    sorted.push_back(param.name);
  }
  std::sort(sorted.begin(), sorted.end());
  return std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
}

bool is_blank_name(const Text& name) { return name.empty() || name == " "; }

bool is_wide(const Value& value) { return value.is_integer() && !value.to_int64(); }

}  // namespace

ToolDeclaration make_tool(Choices& choices) {
  ToolDeclaration tool{.name = "search"};
  for (std::size_t count = choices.below(4); count > 0; --count) {
    tool.actions.push_back({.name = choices.one_of(action_names), .synonyms = some_of(choices, action_names, 1)});
  }
  if (choices.flag()) {
    tool.default_action = choices.one_of(action_names);
  }
  // More names than a map searches in a row, now and then.
  for (std::size_t count = choices.below(16) == 15 ? 40 : choices.below(6); count > 0; --count) {
    tool.params.push_back(make_param(choices));
    if (count > 6) {
      tool.params.back().name = "name " + std::to_string(count);
    }
  }
  return tool;
}

ArgumentMap make_request(Choices& choices, const ToolDeclaration& tool) {
  ArgumentMap request;
  while (!choices.empty() && request.size() < 64) {
    const std::size_t way = choices.below(8);
    if (way == 0) {
      request.set(ACTION_PARAM, way == choices.below(2) ? make_value(choices, 1) : Value(choices.one_of(action_names)));
      continue;
    }
    const std::string name = make_name(choices, tool);
    request.set(name, way == 1 ? Value(choices.one_of(allowed)) : make_value(choices, 2));
  }
  return request;
}

bool is_consistent(const ToolDeclaration& tool) {
  const auto names_blank = [](const ActionSpec& action) { return is_blank_name(action.name); };
  const auto is_default = [&](const ActionSpec& action) { return action.name == *tool.default_action; };
  return std::all_of(tool.params.begin(), tool.params.end(), bounds_fit) &&
         std::none_of(tool.params.begin(), tool.params.end(), is_kept) && is_declared_once(tool.params) &&
         std::none_of(tool.actions.begin(), tool.actions.end(), names_blank) &&
         (!tool.default_action || std::any_of(tool.actions.begin(), tool.actions.end(), is_default));
}

bool has_wide_integer(const ToolDeclaration& tool, const ArgumentMap& request) {
  return std::any_of(request.begin(), request.end(), [](const auto& entry) { return is_wide(entry.value); }) ||
         std::any_of(tool.params.begin(), tool.params.end(), [](const ParamSpec& param) {
           const auto unusual = [](const Value& bound) {
             return is_wide(bound) || (bound.is_floating() && std::isinf(bound.floating()));
           };
           return unusual(param.minimum) || unusual(param.maximum);
         });
}

}  // namespace tool_binding::fuzz
