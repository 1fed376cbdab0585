// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/admission.hpp"
#include "tool_binding/tool_binding.hpp"

/// The layer's rules once more, as plainly as they can be written: what fuzzers and tests hold the layer against.
///
/// Each function answers as the layer's function of that name does, and fails as it does, from the declaration itself:
/// every list is searched from its front, nothing is prepared, and nothing is written with speed in mind. Nothing but
/// values, texts, their written forms and the readers of truth words and lists is shared with the layer. Where the two
/// differ, one of them is wrong.
namespace tool_binding::model {

/// The tool of that name. Throws KeyError when there is none.
[[nodiscard]] const ToolDeclaration& tool_named(std::span<const ToolDeclaration> tools, std::string_view name);

/// A note or a problem: what it is about, as a tool_binding::Finding has it, and its words.
struct Finding {
  using Kind = tool_binding::Finding::Kind;

  Kind kind;
  Text argument = {};
  const ParamSpec* parameter = nullptr;  ///< one of the declaration's
  Value sent = {};
  Value read = {};
  Value used = {};
  Text proposal = {};
  Text action = {};
  std::string message = {};
};

/// What came of a request, refused or not, with everything found in the order in which it was found.
struct Admission {
  ArgumentMap arguments = {};
  std::vector<Finding> findings = {};
  bool alias_hit = false;
};

[[nodiscard]] Admission admit(const ToolDeclaration& tool, const ArgumentMap& arguments);

/// Messages of a KeyError, a TypeError and an overflow_error are not the layer's own.
[[nodiscard]] NormalizedArguments normalize_arguments(const ToolDeclaration& tool, const ArgumentMap& arguments);

[[nodiscard]] std::optional<std::string> missing_arguments(const ToolDeclaration& tool,
                                                           std::optional<std::string_view> action,
                                                           const ArgumentMap& arguments);
[[nodiscard]] std::optional<std::string> missing_arguments(const ToolDeclaration& tool,
                                                           std::optional<std::string_view> action,
                                                           const KeywordArguments& keywords);

[[nodiscard]] ArgumentMap bind_arguments(const ToolDeclaration& tool, const ArgumentMap& arguments);

[[nodiscard]] Value action_default(const ToolDeclaration& tool, std::string_view name, std::string_view action);

[[nodiscard]] KeywordArguments handler_kwargs(const Handler& handler, const ArgumentMap& bound,
                                              const KeywordArguments& context);

[[nodiscard]] Value effective_action(const ToolDeclaration& tool, const ArgumentMap& arguments);

}  // namespace tool_binding::model
