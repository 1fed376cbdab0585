// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "tool_binding/value.hpp"
#include "values/text_builder.hpp"

/// The two forms of a value, appended to a message that is being built. None of these recurses, however deeply a value
/// is nested.
namespace tool_binding {

void append_plain_form(TextBuilder& out, const Value& value);
void append_quoted_form(TextBuilder& out, const Value& value);

/// The quoted form of a text, and the form that a floating number has in both.
void append_quoted_text(TextBuilder& out, std::string_view text);
void append_floating(TextBuilder& out, double number);

}  // namespace tool_binding
