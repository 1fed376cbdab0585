// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "admission/missing.hpp"
#include "admission/normalizing.hpp"
#include "registry/routing_params.hpp"
#include "text/white_space.hpp"

namespace tool_binding {

NormalizedArguments normalize_arguments(std::string_view tool, const ArgumentMap& arguments) {
  return normalize_arguments(TOOLS[tool], arguments);
}

NormalizedArguments normalize_arguments(const ToolSpec& tool, const ArgumentMap& arguments) {
  // The state is gone before the error is thrown: an error costs by what it has to clean up on its way out.
  detail::LooseText refusal;
  {
    Normalizing state(tool, arguments.size());
    for (const auto& [name, value] : arguments) {
      state.take(name, value);
    }
    if (state.admits()) {
      return state.result();
    }
    refusal = detail::LooseText(state.refusal());
  }
  throw ArgumentError(refusal.take());
}

Normalizing::Normalizing(const ToolSpec& tool, std::size_t argument_count)
    : spec(tool), prepared(tool.prepared()), slots(prepared.bound_defaults.size()) {
  arguments.reserve(std::min(argument_count + 1, prepared.bound_defaults.size()));
}

void Normalizing::take(const Text& name, const Value& value) {
  if (value.is_null()) {
    return;
  }
  const Param* const param = prepared.param(name);
  if (param != nullptr && name == param->spec->name && !param->is_reserved) {
    _take_named(*param, value);
  } else if (name == ACTION_PARAM) {
    _take_action(value);
  } else if (!is_routing_param(name)) {
    param == nullptr ? _unknown_parameter(problems.add(), name) : _take_synonym(name, *param, value);
  }
}

void Normalizing::_take_named(const Param& param, const Value& value) {
  if (value.is_text() && !_given(*param.spec, value)) {
    return;
  }
  slots[param.slot].named = true;
  _take_value(param, value);
}

/// A synonym's value is taken only while its parameter has none.
void Normalizing::_take_synonym(const Text& name, const Param& param, const Value& value) {
  if (value.is_text() && !_given(*param.spec, value)) {
    return;
  }
  alias_hit = true;
  const bool given_too = slots[param.slot].named || slots[param.slot].stored();
  std::string& note = _add_note();
  note.append("'").append(name).append(given_too ? "' was left out: '" : "' was read as '");
  note.append(param.spec->name).append(given_too ? "' was given too" : "'");
  if (!given_too) {
    _take_value(param, value);
  }
}

void Normalizing::_take_value(const Param& param, const Value& value) {
  const bool as_it_is = param.takes_any && value.kind() == param.kind;
  if (const Value* const taken = as_it_is ? &value : _coerced(param, value)) {
    _store(param.slot, *taken);
  }
}

void Normalizing::_store(std::uint32_t slot, const Value& value) {
  if (slots[slot].stored()) {
    arguments.replace_at(slots[slot].place - 1, value);
    return;
  }
  arguments.append(prepared.bound_defaults[slot].name, value);
  slots[slot].place = static_cast<std::uint32_t>(arguments.size());
}

/// Begins a note. The caller appends its words to the text that is returned.
std::string& Normalizing::_add_note() {
  constexpr std::size_t enough_for_most = 80;
  notes.emplace_back().reserve(enough_for_most);
  return notes.back();
}

bool Normalizing::admits() {
  const std::optional<Text> action = _action();
  if (action || spec.actions().empty()) {
    _check_required(action);
  }
  return problems.empty();
}

NormalizedArguments Normalizing::result() {
  return NormalizedArguments(std::move(arguments), std::move(notes), alias_hit);
}

void Normalizing::_check_required(const std::optional<Text>& action) {
  const auto value_of = [this](const Param& param) {
    const SlotState& state = slots[param.slot];
    return state.stored() ? &arguments[state.place - 1].value : nullptr;
  };
  const auto name = action ? std::optional<std::string_view>(*action) : std::nullopt;
  _missing(spec, name, value_of, problems);
}

}  // namespace tool_binding
