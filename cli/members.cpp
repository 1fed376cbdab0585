// SPDX-License-Identifier: MIT
#include "members.hpp"

#include <string>

namespace tool_binding::cli {

namespace {

[[noreturn]] void refuse(const std::string& what, std::string_view wanted, const Value& value) {
  throw InvalidRequest(what + " must be " + std::string(wanted) + ", not " + std::string(kind_words(value.kind())));
}

std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

/// The member of that name, null where it is left out.
const Value* given(const ArgumentMap& members, const Text& name) {
  const Value* const found = members.find(name);
  return found == nullptr || found->is_null() ? nullptr : found;
}

const Value& required(const ArgumentMap& members, const Text& name) {
  const Value* const found = given(members, name);
  if (found == nullptr) {
    throw InvalidRequest(quoted(name) + " is missing");
  }
  return *found;
}

Text text_of(const Value& value, const Text& name) {
  if (!value.is_text()) {
    refuse(quoted(name), "text", value);
  }
  return value.shared_text();
}

Value object_of(const Value& value, const Text& name) {
  if (!value.is_mapping()) {
    refuse(quoted(name), "an object", value);
  }
  return value;
}

}  // namespace

const ArgumentMap& members_of(const Value& line) {
  if (!line.is_mapping()) {
    refuse("a request", "an object", line);
  }
  return line.mapping();
}

Text required_text(const ArgumentMap& members, const Text& name) { return text_of(required(members, name), name); }

std::optional<Text> optional_text(const ArgumentMap& members, const Text& name) {
  const Value* const found = given(members, name);
  return found == nullptr ? std::nullopt : std::optional(text_of(*found, name));
}

Value required_object(const ArgumentMap& members, const Text& name) { return object_of(required(members, name), name); }

Value optional_object(const ArgumentMap& members, const Text& name) {
  static const Value empty{ArgumentMap()};
  const Value* const found = given(members, name);
  return found == nullptr ? empty : object_of(*found, name);
}

}  // namespace tool_binding::cli
