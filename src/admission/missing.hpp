// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "admission/argument_value.hpp"
#include "text/white_space.hpp"

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

/// Whether a call that runs `action` needs the parameter; no action stands for a call that runs none.
[[nodiscard]] inline bool _needed(const ParamSpec& param, const std::optional<Text>& action) noexcept {
  if (action) {
    for (const Text& needing : param.required_for) {
      if (*action == needing) {
        return true;
      }
    }
  }
  return param.required;
}

/// Adds a problem for each parameter that a call of `action` needs and that is not given, in the registry's order.
/// `is_given(param)` says whether the arguments give it.
template <class IsGiven>
void _missing(const detail::CompiledTool& tool, const std::optional<Text>& action, const IsGiven& is_given,
              Findings& findings) {
  for (const std::uint32_t place : tool.needed) {
    const detail::CompiledParam& param = tool.compiled_params[place];
    if (_needed(*param.spec, action) && !is_given(param)) {
      Finding& finding = add_finding(findings, Finding::Kind::missing_parameter, tool);
      finding.parameter = param.spec;
      finding.action = action.value_or(Text());
    }
  }
}

}  // namespace tool_binding
