// SPDX-License-Identifier: MIT
#include <utility>

#include "admission/near_names.hpp"
#include "admission/normalizing.hpp"
#include "text/white_space.hpp"
#include "values/forms.hpp"
#include "values/joined.hpp"

namespace tool_binding {

namespace {

/// The registry's refusal of an action, with the nearest declared one when one is near.
std::string _unknown_action(const ToolSpec& spec, const Value& action) {
  std::string error = spec.unknown_action_error(action);
  if (const Text* const near = _nearest(plain_form(action), spec.prepared().near_actions)) {
    error.append(". Did you mean '").append(*near).append("'?");
  }
  return error;
}

}  // namespace

void Normalizing::_take_action(const Value& value) {
  if (value.is_text() && text::is_blank(value.text())) {
    return;
  }
  const ActionSpec* const action = spec.action(value);
  if (action == nullptr) {
    _action_refused = true;
    if (spec.actions().empty()) {
      problems.add().append(spec.name()).append(" takes no 'action'");
    } else {
      problems.add().append(_unknown_action(spec, value));
    }
    return;
  }
  if (action->name != value.text()) {
    alias_hit = true;
    std::string& note = _add_note();
    append_plain_form(note.append("the action '"), value);
    note.append("' was read as '").append(action->name).append("'");
  }
  _store(prepared.action_slot, action->name);
}

/// The action that the request runs: the one it names, else the tool's default. Null when there is none, or when the
/// named one was refused.
const Text* Normalizing::_action() {
  const bool has_slot = prepared.action_slot != detail::NameIndex::absent;
  if (has_slot && slots[prepared.action_slot].stored()) {
    _named_action = plain_form(arguments[slots[prepared.action_slot].place_stored()].value);
    return &_named_action;
  }
  if (_action_refused) {
    return nullptr;
  }
  if (const std::optional<Text>& action = prepared.declared.default_action) {
    if (has_slot) {
      _store(prepared.action_slot, *action);
    } else {
      arguments.append(ACTION_PARAM, *action);
    }
    return &*action;
  }
  if (!prepared.declared.actions.empty()) {
    std::string& problem = problems.add();
    problem.append(spec.name()).append(" needs an 'action': one of ");
    append_joined(problem, spec.action_names(), ", ");
  }
  return nullptr;
}

}  // namespace tool_binding
