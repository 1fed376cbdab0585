// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/value.hpp"

/// The coercers: each is given a value that is not of its type yet, and returns it as one that is. Null stands for a
/// value that cannot be read so, whether by its kind or by its content: a refused value is an everyday answer of
/// admission, and costs no exception.
namespace tool_binding {

[[nodiscard]] Value _integer(const Value& value);
/// Throws std::overflow_error for an integer beyond the largest double.
[[nodiscard]] Value _number(const Value& value);
[[nodiscard]] Value _boolean(const Value& value);
[[nodiscard]] Value _string(const Value& value);
[[nodiscard]] Value _array(const Value& value);

}  // namespace tool_binding
