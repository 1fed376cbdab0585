// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registry/prepared_tool.hpp"
#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

/// Whether `value` says something: null never does, blank text only where the parameter's blank is a value, and so for
/// an empty list. False, zero and an empty mapping do.
[[nodiscard]] bool _given(const ParamSpec& param, const Value& value);

/// The problem of one missing parameter.
[[nodiscard]] std::string _missing_problem(const ToolSpec& spec, std::optional<std::string_view> action,
                                           const ParamSpec& param);

/// A problem for each parameter that a call of `action` needs and that the arguments do not give, in the registry's
/// order. `value_of(param)` points to a parameter's value in the arguments, or is null where they hold none.
template <class ValueOf>
[[nodiscard]] std::vector<std::string> _missing(const ToolSpec& spec, std::optional<std::string_view> action,
                                                const ValueOf& value_of) {
  std::vector<std::string> problems;
  for (const detail::PreparedParam& param : spec.prepared().params) {
    if (!param.spec->required_by(action)) {
      continue;
    }
    const Value* const value = value_of(param);
    if (value == nullptr || !_given(*param.spec, *value)) {
      problems.push_back(_missing_problem(spec, action, *param.spec));
    }
  }
  return problems;
}

}  // namespace tool_binding
