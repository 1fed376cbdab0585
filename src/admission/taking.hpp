// SPDX-License-Identifier: MIT
#pragma once

#include "admission/normalizing.hpp"
#include "near_names/nearest.hpp"
#include "registry/tool_record.hpp"
#include "text/white_space.hpp"

/// Taking: what each argument of a request gives, by its name.
namespace tool_binding {

[[gnu::always_inline]] inline bool is_blank_text(const Value& value) {
  return value.is_text() && text::is_blank(value.text());
}

/// Whether `value` is blank text that leaves the parameter out.
[[gnu::always_inline]] inline bool is_left_out(const detail::CompiledParam& param, const Value& value) {
  return is_blank_text(value) && !param.spec->blank_is_value;
}

/// The nearest declared name, empty when none is near.
inline Text proposal_for(std::string_view name, const detail::NearCandidates& candidates) {
  const Text* const near = _nearest(name, candidates);
  return near == nullptr ? Text() : *near;
}

template <class Row>
inline void Normalizing<Row>::_take(const Text& name, const Value& value) {
  if (value.is_null()) {
    return;
  }
  const std::uint32_t slot = spec.slots.find(name);
  if (slot == detail::NameIndex::absent || spec.named_params[slot] == nullptr) {
    _take_reserved_or_other(name, value);
    return;
  }
  const Param& param = *spec.named_params[slot];
  if (is_left_out(param, value)) {
    return;
  }
  slots[slot].named = true;
  if (param.fast_path.takes(value)) {
    _store(slot, value);
  } else {
    _take_value(name, param, value);
  }
}

/// Takes an argument whose name is not the declared one of a parameter.
template <class Row>
void Normalizing<Row>::_take_reserved_or_other(const Text& name, const Value& value) {
  if (name == ACTION_PARAM) {
    _take_action(value);
  } else if (!is_routing_param(name)) {
    const Param* const param = spec.param(name);
    param == nullptr ? _unknown_parameter(name, value) : _take_synonym(name, *param, value);
  }
}

/// A synonym's value is taken only while its parameter has none.
template <class Row>
void Normalizing<Row>::_take_synonym(const Text& name, const Param& param, const Value& value) {
  if (is_left_out(param, value)) {
    return;
  }
  alias_hit = true;
  const bool given_too = slots[param.slot].named || slots[param.slot].stored();
  const auto kind = given_too ? Finding::Kind::synonym_left_out : Finding::Kind::synonym_read;
  add_finding(findings, kind, SentArgument{spec, param, name, value});
  if (!given_too) {
    _take_value(name, param, value);
  }
}

template <class Row>
[[gnu::always_inline]] inline void Normalizing<Row>::_take_value(const Text& name, const Param& param,
                                                                 const Value& value) {
  if (Value taken = _coerced({spec, param, name, value}, findings); !taken.is_null()) {
    _store(param.slot, std::move(taken));
  }
}

template <class Row>
void Normalizing<Row>::_take_action(const Value& value) {
  if (is_blank_text(value)) {
    return;
  }
  const ActionSpec* const action = spec.action(value);
  if (action != nullptr && action->name == value.text()) {
    _store(spec.action_slot, value);
    return;
  }
  Finding& finding = add_finding(findings, Finding::Kind::unexpected_action, spec);
  finding.argument = ACTION_PARAM;
  finding.sent = value;
  if (action != nullptr) {
    alias_hit = true;
    finding.kind = Finding::Kind::action_synonym_read;
    finding.used = action->name;
    _store(spec.action_slot, action->name);
    return;
  }
  _action_refused = true;
  if (!spec.declared.actions.empty()) {
    finding.kind = Finding::Kind::unknown_action;
    finding.proposal = proposal_for(plain_form(value), spec.near_actions);
  }
}

/// A name that comes near a synonym is pointed to the declared name.
template <class Row>
void Normalizing<Row>::_unknown_parameter(const Text& name, const Value& value) {
  Text near = proposal_for(name, spec.near_params);
  if (const Param* const param = near.empty() ? nullptr : spec.param(near)) {
    near = param->spec->name;
  }
  Finding& finding = add_finding(findings, Finding::Kind::unknown_parameter, spec);
  finding.argument = name;
  finding.sent = value;
  finding.proposal = std::move(near);
}

}  // namespace tool_binding
