// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "tool_binding/tool_binding.hpp"

/// Why an admitted request is what it is, found by comparing it with what was sent.
namespace tool_binding::cli {

/// What became of one argument.
struct Became {
  std::string name;            ///< the declared one, or the one sent where nothing was admitted
  std::optional<Value> value;  ///< none for an argument that was left out
  std::string reason;          ///< empty where nothing was changed
};

/// What became of the argument `name` of a request that was `admitted`.
[[nodiscard]] Became what_became(const ToolSpec& tool, const Text& name, const Value& sent,
                                 const NormalizedArguments& admitted);

/// Why the handler gets what it gets for a parameter that was not sent.
[[nodiscard]] std::string why_default(const ToolSpec& tool, const Text& name, const ArgumentMap& bound);

/// Whether an argument of that name says something, null being none.
[[nodiscard]] bool is_given(const ArgumentMap& arguments, const Text& name);

}  // namespace tool_binding::cli
