// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "tool_binding/errors.hpp"
#include "tool_binding/value.hpp"

/// The members that a line of input must or may have. A null stands for a member left out; members that nobody asks for
/// are ignored.
namespace tool_binding::cli {

/// A line that is well-formed JSON but not a request.
class InvalidRequest : public ValueError {
 public:
  using ValueError::ValueError;
};

/// The members of a line. Throws InvalidRequest for a line that is not an object.
[[nodiscard]] const ArgumentMap& members_of(const Value& line);

/// Each throws InvalidRequest for a member of another kind, and for a required one that is left out.
[[nodiscard]] Text required_text(const ArgumentMap& members, const Text& name);
[[nodiscard]] std::optional<Text> optional_text(const ArgumentMap& members, const Text& name);
[[nodiscard]] Value required_object(const ArgumentMap& members, const Text& name);

/// The empty object for a member left out.
[[nodiscard]] Value optional_object(const ArgumentMap& members, const Text& name);

}  // namespace tool_binding::cli
