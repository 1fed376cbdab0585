// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "tool_binding/handler.hpp"
#include "tool_binding/tool_registry.hpp"

#pragma GCC visibility push(default)

/// What is wrong in a list of tool declarations, wherever they come from.
namespace tool_binding::json {

/// One fault of a registry.
struct Fault {
  std::string place;     ///< where it stands, as "tools[3].params[0].type"
  std::string words;     ///< what is wrong there
  std::size_t line = 0;  ///< the line of the file, counted from 1; 0 when it is not known

  friend bool operator==(const Fault&, const Fault&) = default;
};

/// One entry of a registry: a tool, and the parameters of the handler that answers it.
struct RegistryEntry {
  ToolDeclaration tool;
  Signature signature;
};

/// The faults that make these entries unusable, without lines: an empty name; a name declared twice; a synonym that
/// names something else too; a type word that is none of the five; a bound that is no number; an action referred to
/// that is not declared. Names of parameters are compared as they stand, synonyms of actions without regard to case, as
/// requests name them. Of two that clash, the later one is the fault.
[[nodiscard]] std::vector<Fault> registry_faults(std::span<const RegistryEntry> entries);

}  // namespace tool_binding::json

#pragma GCC visibility pop
