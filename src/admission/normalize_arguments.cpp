// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "admission/missing.hpp"
#include "admission/normalizing.hpp"
#include "registry/routing_params.hpp"
#include "text/white_space.hpp"

namespace tool_binding {

detail::LooseText detail::admit(const ToolSpec& tool, const ArgumentMap& arguments, NormalizedArguments& admitted) {
  Normalizing state(tool, arguments.size(), admitted);
  for (const auto& [name, value] : arguments) {
    state.take(name, value);
  }
  return LooseText(state.refusal());
}

inline Normalizing::Normalizing(const ToolSpec& tool, std::size_t argument_count, NormalizedArguments& admitted)
    : spec(tool),
      prepared(tool.prepared()),
      arguments(admitted.arguments_),
      notes(admitted.notes_),
      alias_hit(admitted.alias_hit_),
      slots(prepared.bound_defaults.size()) {
  arguments.reserve(std::min(argument_count + 1, prepared.bound_defaults.size()));
}

inline void Normalizing::take(const Text& name, const Value& value) {
  if (value.is_null()) {
    return;
  }
  const std::uint32_t slot = prepared.slots.find(name);
  if (slot == detail::NameIndex::absent || prepared.named_params[slot] == nullptr) {
    _take_unnamed(name, value);
    return;
  }
  const Param& param = *prepared.named_params[slot];
  if (_is_blank(param, value)) {
    return;
  }
  slots[slot].name();
  if (param.as_it_is.takes(value)) {
    _store(slot, value);
  } else {
    _take_value(param, value);
  }
}

/// Whether `value` is blank text that leaves the parameter out.
inline bool Normalizing::_is_blank(const Param& param, const Value& value) {
  return value.is_text() && text::is_blank(value.text()) && !param.spec->blank_is_value;
}

/// Takes an argument that stands under no parameter's declared name.
void Normalizing::_take_unnamed(const Text& name, const Value& value) {
  if (name == ACTION_PARAM) {
    _take_action(value);
  } else if (!is_routing_param(name)) {
    const Param* const param = prepared.param(name);
    param == nullptr ? _unknown_parameter(problems.add(), name) : _take_synonym(name, *param, value);
  }
}

/// A synonym's value is taken only while its parameter has none.
void Normalizing::_take_synonym(const Text& name, const Param& param, const Value& value) {
  if (_is_blank(param, value)) {
    return;
  }
  alias_hit = true;
  const bool given_too = slots[param.slot].named() || slots[param.slot].stored();
  std::string& note = _add_note();
  note.append("'").append(name).append(given_too ? "' was left out: '" : "' was read as '");
  note.append(param.spec->name).append(given_too ? "' was given too" : "'");
  if (!given_too) {
    _take_value(param, value);
  }
}

void Normalizing::_take_value(const Param& param, const Value& value) {
  if (const Value* const taken = _coerced(param, value)) {
    _store(param.slot, *taken);
  }
}

/// Begins a note. The caller appends its words to the text that is returned.
std::string& Normalizing::_add_note() {
  constexpr std::size_t enough_for_most = 80;
  notes.emplace_back().reserve(enough_for_most);
  return notes.back();
}

inline Text Normalizing::refusal() {
  const Text* const action = _action();
  if (action != nullptr || prepared.declared.actions.empty()) {
    _check_required(action);
  }
  return problems.joined();
}

inline void Normalizing::_check_required(const Text* action) {
  const auto value_of = [this](const Param& param) {
    const SlotState& state = slots[param.slot];
    return state.stored() ? &arguments[state.place_stored()].value : nullptr;
  };
  _missing(spec, action, value_of, problems);
}

}  // namespace tool_binding
