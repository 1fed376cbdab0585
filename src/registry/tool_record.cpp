// SPDX-License-Identifier: MIT
#include "registry/tool_record.hpp"

#include <utility>

#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "values/forms.hpp"
#include "values/joined.hpp"

namespace tool_binding::detail {

namespace {

template <class Record>
std::vector<Text> names_of(const std::vector<Record>& records) {
  std::vector<Text> names;
  names.reserve(records.size());
  for (const Record& record : records) {
    names.push_back(record.name);
  }
  return names;
}

/// Declared names come before all synonyms, so that a synonym never hides one.
NameIndex index_params(const std::vector<ParamSpec>& params) {
  NameIndex index;
  for (std::uint32_t position = 0; position < params.size(); ++position) {
    index.add(params[position].name, position);
  }
  for (std::uint32_t position = 0; position < params.size(); ++position) {
    for (const Text& synonym : params[position].synonyms) {
      index.add(synonym, position);
    }
  }
  return index;
}

NameIndex index_actions(const std::vector<ActionSpec>& actions) {
  NameIndex index;
  for (std::uint32_t position = 0; position < actions.size(); ++position) {
    index.add(actions[position].name, position);
  }
  return index;
}

NameIndex index_lowered_actions(const std::vector<ActionSpec>& actions) {
  NameIndex index;
  for (std::uint32_t position = 0; position < actions.size(); ++position) {
    index.add(text::lower_case(actions[position].name), position);
    for (const Text& synonym : actions[position].synonyms) {
      index.add(text::lower_case(synonym), position);
    }
  }
  return index;
}

}  // namespace

ToolRecord::ToolRecord(ToolDeclaration declaration)
    : declared(std::move(declaration)),
      param_names(names_of(declared.params)),
      action_names(names_of(declared.actions)),
      params(index_params(declared.params)),
      actions(index_actions(declared.actions)),
      lowered_actions(index_lowered_actions(declared.actions)) {}

const ActionSpec* ToolRecord::action(const Value& value) const {
  if (!value.is_text() || declared.actions.empty()) {
    return nullptr;
  }
  std::uint32_t found = actions.find(value.text());
  if (found == NameIndex::absent) {
    found = lowered_actions.find(text::lower_case(text::strip(value.text())));
  }
  return found == NameIndex::absent ? nullptr : &declared.actions[found];
}

void append_unknown_action(TextBuilder& out, const ToolRecord& tool, const Value& action) {
  append_plain_form(out.append("Unknown action '"), action);
  append_joined(out.append("' for ").append(tool.declared.name).append(": one of "), tool.action_names, ", ");
}

}  // namespace tool_binding::detail
