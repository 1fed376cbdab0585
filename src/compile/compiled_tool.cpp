// SPDX-License-Identifier: MIT
#include "compile/compiled_tool.hpp"

#include <algorithm>
#include <utility>

#include "text/lower_case.hpp"
#include "values/joined.hpp"

namespace tool_binding {

namespace detail {

namespace {

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

bool holds_node(const ArgumentMap::Entry& entry) {
  const Value& value = entry.value;
  return cell_of(entry.name).holds_node() || value.is_list() || value.is_mapping() ||
         (value.is_text() && cell_of(value.shared_text()).holds_node()) || (value.is_integer() && !value.to_int64());
}

NameIndex index_slots(const ArgumentMap& bound_defaults) {
  NameIndex slots;
  for (std::uint32_t index = 0; index < bound_defaults.size(); ++index) {
    slots.add(bound_defaults[index].name, index);
  }
  return slots;
}

std::vector<Text> names_and_synonyms(const ToolRecord& tool) {
  std::vector<Text> names = tool.param_names;
  for (const ParamSpec& param : tool.declared.params) {
    names.insert(names.end(), param.synonyms.begin(), param.synonyms.end());
  }
  return names;
}

std::string list_taken(const std::vector<Text>& names) {
  TextBuilder list;
  append_joined(list.append(names.empty() ? " It takes none" : " It takes: "), names, ", ");
  return std::string(list.append(".").view());
}

CompiledParam compile(const ParamSpec& param, const NameIndex& slots) {
  const TypeRow* const type = type_row(param.type);
  const bool is_array = type != nullptr && type->type == TypeWord::array;
  const bool items_are_texts = is_array && param.items_type == Text("string");
  std::vector<Text> lowered_enum;
  lowered_enum.reserve(param.enum_.size());
  for (const Text& value : param.enum_) {
    lowered_enum.push_back(text::lower_case(value));
  }
  FastPath fast_path(param, type == nullptr ? Kind::null : type->kind, items_are_texts, lowered_enum);
  return {&param, type, items_are_texts, slots.find(param.name), std::move(lowered_enum), std::move(fast_path)};
}

}  // namespace

CompiledTool::CompiledTool(ToolDeclaration declaration)
    : ToolRecord(std::move(declaration)),
      bound_defaults(make_bound_defaults(declared)),
      defaults_hold_nodes(std::any_of(bound_defaults.begin(), bound_defaults.end(), holds_node)),
      named_params(bound_defaults.size()),
      binds_action(!declared.actions.empty()),
      taken(list_taken(param_names)),
      near_params(names_and_synonyms(*this)),
      near_actions(action_names) {
  slots = index_slots(bound_defaults);
  action_slot = slots.find(ACTION_PARAM);
  compiled_params.reserve(declared.params.size());
  for (const ParamSpec& param : declared.params) {
    if (param.required || !param.required_for.empty()) {
      needed.push_back(static_cast<std::uint32_t>(compiled_params.size()));
    }
    compiled_params.push_back(compile(param, slots));
    const CompiledParam& compiled = compiled_params.back();
    if (named_params[compiled.slot] == nullptr && !is_reserved_name(param.name)) {
      named_params[compiled.slot] = &compiled;
    }
    binds_action = binds_action && param.name != ACTION_PARAM;
  }
}

}  // namespace detail

ToolSpec::ToolSpec(ToolDeclaration declaration)
    : record_(std::make_shared<const detail::CompiledTool>(std::move(declaration))) {}

}  // namespace tool_binding
