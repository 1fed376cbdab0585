// SPDX-License-Identifier: MIT
#include "registry/prepared_tool.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "registry/routing_params.hpp"
#include "text/lower_case.hpp"
#include "values/joined.hpp"

namespace tool_binding::detail {

namespace {

struct TypeWordRow {
  std::string_view word;
  TypeWord type;
  Kind kind;  ///< of the type's values
};

constexpr std::array<TypeWordRow, 5> type_words = {{{"integer", TypeWord::integer, Kind::integer},
                                                    {"number", TypeWord::number, Kind::floating},
                                                    {"boolean", TypeWord::boolean, Kind::boolean},
                                                    {"string", TypeWord::string, Kind::text},
                                                    {"array", TypeWord::array, Kind::list}}};

const TypeWordRow* row_of(std::string_view word) noexcept {
  const auto row =
      std::find_if(type_words.begin(), type_words.end(), [&](const TypeWordRow& each) { return each.word == word; });
  return row == type_words.end() ? nullptr : &*row;
}

template <class Record>
std::vector<Text> names_of(const std::vector<Record>& records) {
  std::vector<Text> names;
  names.reserve(records.size());
  for (const Record& record : records) {
    names.push_back(record.name);
  }
  return names;
}

std::uint32_t number(std::size_t place) { return static_cast<std::uint32_t>(place); }

/// Declared names come before all synonyms, so that a synonym never hides one.
NameIndex index_params(const std::vector<ParamSpec>& params) {
  NameIndex index;
  for (std::size_t place = 0; place < params.size(); ++place) {
    index.add(params[place].name, number(place));
  }
  for (std::size_t place = 0; place < params.size(); ++place) {
    for (const Text& synonym : params[place].synonyms) {
      index.add(synonym, number(place));
    }
  }
  return index;
}

NameIndex index_names(const std::vector<Text>& names) {
  NameIndex index;
  for (std::size_t place = 0; place < names.size(); ++place) {
    index.add(names[place], number(place));
  }
  return index;
}

NameIndex index_lowered_actions(const std::vector<ActionSpec>& actions) {
  NameIndex index;
  for (std::size_t place = 0; place < actions.size(); ++place) {
    index.add(text::lower_case(actions[place].name), number(place));
    for (const Text& synonym : actions[place].synonyms) {
      index.add(text::lower_case(synonym), number(place));
    }
  }
  return index;
}

ArgumentMap make_bound_defaults(const ToolDeclaration& declared) {
  ArgumentMap defaults;
  defaults.reserve(declared.params.size() + 1);
  if (!declared.actions.empty()) {
    defaults.set(ACTION_PARAM, {});
  }
  for (const ParamSpec& param : declared.params) {
    defaults.set(param.name, param.action_defaults.empty() ? param.default_ : Value());
  }
  return defaults;
}

NameIndex index_slots(const ArgumentMap& bound_defaults) {
  NameIndex slots;
  for (std::size_t place = 0; place < bound_defaults.size(); ++place) {
    slots.add(bound_defaults[place].name, number(place));
  }
  return slots;
}

PreparedParam prepare(const ParamSpec& param, const NameIndex& slots) {
  const TypeWordRow* const row = row_of(param.type);
  const TypeWord type = row == nullptr ? TypeWord::unknown : row->type;
  const Kind kind = row == nullptr ? Kind::null : row->kind;
  const bool items_are_texts = type == TypeWord::array && param.items_type == Text("string");
  std::vector<Text> lowered_enum;
  lowered_enum.reserve(param.enum_.size());
  for (const Text& value : param.enum_) {
    lowered_enum.push_back(text::lower_case(value));
  }
  AsItIs as_it_is(param, kind, items_are_texts, lowered_enum);
  return {&param, type, kind, items_are_texts, slots.find(param.name), std::move(lowered_enum), std::move(as_it_is)};
}

std::vector<Text> names_and_synonyms(const std::vector<ParamSpec>& params) {
  std::vector<Text> names = names_of(params);
  for (const ParamSpec& param : params) {
    names.insert(names.end(), param.synonyms.begin(), param.synonyms.end());
  }
  return names;
}

}  // namespace

TypeWord type_word(std::string_view word) noexcept {
  const TypeWordRow* const row = row_of(word);
  return row == nullptr ? TypeWord::unknown : row->type;
}

PreparedTool::PreparedTool(ToolDeclaration declaration)
    : declared(std::move(declaration)),
      param_names(names_of(declared.params)),
      action_names(names_of(declared.actions)),
      names(index_params(declared.params)),
      actions(index_names(action_names)),
      lowered_actions(index_lowered_actions(declared.actions)),
      bound_defaults(make_bound_defaults(declared)),
      near_params(names_and_synonyms(declared.params)),
      near_actions(action_names) {
  append_joined(joined_param_names, param_names, ", ");
  slots = index_slots(bound_defaults);
  action_slot = slots.find(ACTION_PARAM);
  binds_action = !declared.actions.empty();
  params.reserve(declared.params.size());
  for (const ParamSpec& param : declared.params) {
    if (param.required || !param.required_for.empty()) {
      needed.push_back(number(params.size()));
    }
    params.push_back(prepare(param, slots));
    binds_action = binds_action && param.name != ACTION_PARAM;
  }
  named_params.resize(bound_defaults.size());
  for (const PreparedParam& param : params) {
    const Text& name = param.spec->name;
    if (named_params[param.slot] == nullptr && name != ACTION_PARAM && !is_routing_param(name)) {
      named_params[param.slot] = &param;
    }
  }
}

}  // namespace tool_binding::detail
