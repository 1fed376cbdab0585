// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "tool_binding/value.hpp"

namespace tool_binding::model {

struct Type {
  std::string_view word;   ///< under which a parameter is declared to be of it
  std::string_view words;  ///< in which a problem names it
  /// A value as one of the type, nothing for one that cannot be read so. Throws std::overflow_error for an integer that
  /// no double can hold.
  std::optional<Value> (*coerced)(const Value&);
};

/// Throws KeyError for a word that names none of the five types.
[[nodiscard]] const Type& type_named(std::string_view word);

/// The double nearest to `integer`. Throws std::overflow_error when there is none.
[[nodiscard]] double to_double(const Integer& integer);

}  // namespace tool_binding::model
