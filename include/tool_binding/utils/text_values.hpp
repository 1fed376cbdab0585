// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/value.hpp"

/// Readers of values that were sent as text.
namespace tool_binding {

/// Whether nothing is left of `text` once white space is stripped: what leaves most parameters out.
[[nodiscard]] TOOL_BINDING_API bool is_blank(std::string_view text) noexcept;

/// Whether `text` says true or false, white space stripped and case ignored: true, yes, on, 1, t, y; false, no, off, 0,
/// f, n. Throws ValueError for any other text.
[[nodiscard]] TOOL_BINDING_API bool parse_bool(std::string_view text);

/// The items of a comma-separated text, in order, each a text; throws ValueError for a text that is cut into pieces
/// wrongly rather than rightly.
///
/// White space around an item is dropped, and so is an item that is empty. An item in double quotes is kept as it
/// is, commas included, a doubled quote being one quote; only white space may follow it. A text between "[" and "]" is
/// a list as programs write it: items may be quoted by ' or ", with the escapes of JSON (RFC 8259) and \'; an unquoted
/// item that begins with "[" or "{", an unknown escape and half a surrogate pair are refused.
[[nodiscard]] TOOL_BINDING_API std::vector<Value> split_csv(std::string_view text);

}  // namespace tool_binding
