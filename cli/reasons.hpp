// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "tool_binding/tool_binding.hpp"

/// Why a request came to what it is, read from what admission found.
namespace tool_binding::cli {

/// A request for `tool`, and what admission made of it.
struct Request {
  const ToolSpec& tool;
  const ArgumentMap& arguments;
  const Admission& admission;
};

/// What became of one argument.
struct Treatment {
  std::string name;            ///< the declared one, or the one sent where nothing was admitted
  std::optional<Value> value;  ///< none for an argument that was left out
  std::string reason;          ///< empty where nothing was changed
};

/// Whether the argument is a problem.
[[nodiscard]] bool is_refused(const Admission& admission, const Text& argument);

/// What became of an argument of the request that is not a problem.
[[nodiscard]] Treatment treatment_of(const Request& request, const Text& name, const Value& sent);

/// Why the handler gets what it gets for a parameter that was not sent.
[[nodiscard]] std::string why_default(const ToolSpec& tool, const Text& name, const ArgumentMap& bound);

}  // namespace tool_binding::cli
