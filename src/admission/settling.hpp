// SPDX-License-Identifier: MIT
#pragma once

#include "admission/missing.hpp"
#include "admission/normalizing.hpp"

/// Settling: the action that a request runs, and what that needs.
namespace tool_binding {

template <class Row>
inline void Normalizing<Row>::_settle() {
  const std::optional<Text> action = _action();
  if (action || spec.declared.actions.empty()) {
    _check_required(action);
  }
}

/// The action that the request runs: the one it names, else the tool's default. None when there is none, or when the
/// named one was refused.
template <class Row>
inline std::optional<Text> Normalizing<Row>::_action() {
  const bool has_slot = spec.action_slot != detail::NameIndex::absent;
  if (has_slot && slots[spec.action_slot].stored()) {
    const Value& action = row.at(slots[spec.action_slot].index);
    return action.is_text() ? action.shared_text() : plain_form(action);
  }
  if (_action_refused) {
    return std::nullopt;
  }
  if (const std::optional<Text>& action = spec.declared.default_action) {
    has_slot ? _store(spec.action_slot, *action) : row.add_action(*action);
    return action;
  }
  if (!spec.declared.actions.empty()) {
    add_finding(findings, Finding::Kind::missing_action, spec);
  }
  return std::nullopt;
}

template <class Row>
inline void Normalizing<Row>::_check_required(const std::optional<Text>& action) {
  const auto is_given = [this](const Param& param) {
    const Slot& slot = slots[param.slot];
    return slot.stored() && _given(*param.spec, row.at(slot.index));
  };
  _missing(spec, action, is_given, findings);
}

/// Whether problems are among what was found.
[[nodiscard]] inline bool have_problems(const Findings& findings) noexcept {
  for (const Finding& finding : findings) {
    if (is_problem(finding.kind)) {
      return true;
    }
  }
  return false;
}

}  // namespace tool_binding
