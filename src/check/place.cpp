// SPDX-License-Identifier: MIT
#include <algorithm>

#include "tool_binding/registry_check.hpp"

namespace tool_binding {

namespace {

bool is_word_byte(char byte) noexcept {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') || byte == '_' ||
         byte == '-';
}

bool is_word(std::string_view name) noexcept {
  return !name.empty() && std::all_of(name.begin(), name.end(), is_word_byte);
}

}  // namespace

std::string member_place(std::string_view parent, std::string_view name) {
  std::string place(parent);
  if (!is_word(name)) {
    return place.append("[").append(quoted_form(Value(name))).append("]");
  }
  return place.append(parent.empty() ? "" : ".").append(name);
}

std::string item_place(std::string_view parent, std::size_t index) {
  return std::string(parent).append("[").append(std::to_string(index)).append("]");
}

bool is_place_within(std::string_view inner, std::string_view outer) noexcept {
  return outer.empty() || inner == outer ||
         (inner.starts_with(outer) && (inner[outer.size()] == '.' || inner[outer.size()] == '['));
}

}  // namespace tool_binding
