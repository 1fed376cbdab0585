// SPDX-License-Identifier: MIT
#pragma once

#include "admission/problems.hpp"
#include "registry/prepared_tool.hpp"
#include "text/white_space.hpp"
#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

/// Whether `value` says something: null never does, blank text only where the parameter's blank is a value, and so for
/// an empty list. False, zero and an empty mapping do.
[[nodiscard]] inline bool _given(const ParamSpec& param, const Value& value) {
  if (param.blank_is_value) {
    return !value.is_null();
  }
  if (value.is_text()) {
    return !text::is_blank(value.text());
  }
  return !value.is_null() && !(value.is_list() && value.list().empty());
}

/// Whether a call that runs `action` needs the parameter; null stands for a call that runs none.
[[nodiscard]] inline bool _needed(const ParamSpec& param, const Text* action) noexcept {
  if (action != nullptr) {
    for (const Text& needing : param.required_for) {
      if (*action == needing) {
        return true;
      }
    }
  }
  return param.required;
}

/// Adds the problem of one missing parameter.
void _add_missing(Problems& problems, const ToolSpec& spec, const Text* action, const ParamSpec& param);

/// Adds a problem for each parameter that a call of `action` needs and that the arguments do not give, in the
/// registry's order. `value_of(param)` points to a parameter's value in the arguments, or is null where they hold none.
template <class ValueOf>
void _missing(const ToolSpec& spec, const Text* action, const ValueOf& value_of, Problems& problems) {
  for (const std::uint32_t place : spec.prepared().needed) {
    const detail::PreparedParam& param = spec.prepared().params[place];
    if (!_needed(*param.spec, action)) {
      continue;
    }
    const Value* const value = value_of(param);
    if (value == nullptr || !_given(*param.spec, *value)) {
      _add_missing(problems, spec, action, *param.spec);
    }
  }
}

}  // namespace tool_binding
