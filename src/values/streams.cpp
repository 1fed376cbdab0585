// SPDX-License-Identifier: MIT
#include <ostream>

#include "tool_binding/value.hpp"

namespace tool_binding {

std::ostream& operator<<(std::ostream& out, const Text& text) { return out << text.view(); }

std::ostream& operator<<(std::ostream& out, const Integer& integer) { return out << integer.to_string(); }

std::ostream& operator<<(std::ostream& out, const Value& value) { return out << plain_form(value); }

}  // namespace tool_binding
