// SPDX-License-Identifier: MIT
#include "members.hpp"

#include <array>
#include <cstddef>
#include <string>

namespace tool_binding::cli {

namespace {

/// What a person calls each kind of value, in the order of `Kind`.
constexpr std::array<std::string_view, 7> kind_words = {"null", "a boolean", "a number", "a number",
                                                        "text", "a list",    "an object"};

[[noreturn]] void refuse(const std::string& what, std::string_view wanted, const Value& value) {
  const std::string_view sent = kind_words.at(static_cast<std::size_t>(value.kind()));
  throw NoRequest(what + " must be " + std::string(wanted) + ", and is " + std::string(sent));
}

std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

bool is_left_out(const ArgumentMap& members, std::string_view name) {
  const Value* const found = members.find(name);
  return found == nullptr || found->is_null();
}

const Value& required(const ArgumentMap& members, std::string_view name) {
  if (is_left_out(members, name)) {
    throw NoRequest(quoted(name) + " is left out");
  }
  return *members.find(name);
}

}  // namespace

const ArgumentMap& members_of(const Value& line) {
  if (!line.is_mapping()) {
    refuse("a request", "an object", line);
  }
  return line.mapping();
}

Text required_text(const ArgumentMap& members, std::string_view name) {
  const Value& value = required(members, name);
  if (!value.is_text()) {
    refuse(quoted(name), "text", value);
  }
  return value.shared_text();
}

std::optional<Text> optional_text(const ArgumentMap& members, std::string_view name) {
  return is_left_out(members, name) ? std::nullopt : std::optional(required_text(members, name));
}

Value required_object(const ArgumentMap& members, std::string_view name) {
  const Value& value = required(members, name);
  if (!value.is_mapping()) {
    refuse(quoted(name), "an object", value);
  }
  return value;
}

Value optional_object(const ArgumentMap& members, std::string_view name) {
  static const Value empty{ArgumentMap()};
  return is_left_out(members, name) ? empty : required_object(members, name);
}

}  // namespace tool_binding::cli
