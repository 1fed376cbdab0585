// SPDX-License-Identifier: MIT
#include "tool_binding/ordered_map.hpp"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "tool_binding/errors.hpp"

namespace tool_binding::detail {

namespace {

/// As many names as a person reads.
constexpr std::size_t names_shown = 8;

}  // namespace

void throw_no_entry(const Text& name, std::span<const Text> held) {
  std::string message = "no entry is named '" + name + "'";
  std::string_view before = ": there are ";
  for (const Text& other : held.first(std::min(held.size(), names_shown))) {
    message.append(before).append("'").append(other).append("'");
    before = ", ";
  }
  if (held.size() > names_shown) {
    message.append(" and ").append(std::to_string(held.size() - names_shown)).append(" more");
  }
  throw KeyError(message.append(held.empty() ? ": the map is empty" : ""));
}

void throw_too_many_entries() { throw std::length_error("more entries than any memory holds"); }

}  // namespace tool_binding::detail
