// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "tool_binding/value.hpp"

/// The two forms of a value, appended to a message that is being built. None of these recurses, however deeply a value
/// is nested.
namespace tool_binding {

void append_plain_form(std::string& out, const Value& value);
void append_quoted_form(std::string& out, const Value& value);

/// The quoted form of a text, and the form that a floating number has in both.
void append_quoted_text(std::string& out, std::string_view text);
void append_floating(std::string& out, double number);

}  // namespace tool_binding
