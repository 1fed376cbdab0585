// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "compile/compiled_tool.hpp"
#include "tool_binding/admission.hpp"

/// What becomes of an argument's value. Each function returns the value to go on with, null for one that is refused;
/// what it found is added to the findings.
namespace tool_binding {

using Findings = std::vector<Finding>;

/// An argument that gives a declared parameter, for the length of one call.
struct SentArgument {
  const detail::CompiledTool& tool;
  const detail::CompiledParam& param;
  const Text& name;
  const Value& sent;
};

/// The value as its parameter's type, and as its enumeration spells it or within its bounds. Throws KeyError for a type
/// word that is none of the five, TypeError for a bound that is not a number, and std::overflow_error.
[[nodiscard]] Value _coerced(const SentArgument& argument, Findings& findings);

/// Adds a finding about an argument, or about a request for `tool`, of which the caller says the rest.
Finding& add_finding(Findings& findings, Finding::Kind kind, const SentArgument& argument);
Finding& add_finding(Findings& findings, Finding::Kind kind, const detail::CompiledTool& tool);

}  // namespace tool_binding
