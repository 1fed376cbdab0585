// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "tool_binding/value.hpp"

namespace tool_binding::cli {

/// `value` as a JSON text over several lines, for people too: a list or an object is written on one line where it fits,
/// else each of its members begins a line. Ends with a line feed.
[[nodiscard]] std::string page_of(const Value& value);

}  // namespace tool_binding::cli
