// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tool_binding/tool_binding.hpp"

/// Puts one question to the layer and to the model. Each function returns what was asked and both answers where these
/// differ in anything (a value's kind, an entry's place, a letter of a message, the kind of an error), else nothing.
namespace tool_binding::model {

/// One tool, as the model and as the layer reads it.
struct Tool {
  ToolDeclaration declared;
  ToolSpec record = ToolSpec(declared);
};

[[nodiscard]] std::string difference_in_admission(const Tool& tool, const ArgumentMap& request);

/// What is bound, and the keywords that handlers of several kinds are given of it. Any arguments can be bound, whether
/// they were admitted or not.
[[nodiscard]] std::string difference_in_binding(const Tool& tool, const ArgumentMap& arguments);

/// The whole way to the keywords of handlers of several kinds at once, against the model's steps one after another.
[[nodiscard]] std::string difference_in_call(const Tool& tool, const ArgumentMap& request);

/// Admission, the call at once, the binding of the request as it came and, where it is admitted, of what became of it.
[[nodiscard]] std::string difference_in_walk(const Tool& tool, const ArgumentMap& request);

[[nodiscard]] std::string difference_in_missing(const Tool& tool, std::optional<std::string_view> action,
                                                const ArgumentMap& arguments);

[[nodiscard]] std::string difference_in_default(const Tool& tool, std::string_view name, std::string_view action);

}  // namespace tool_binding::model
