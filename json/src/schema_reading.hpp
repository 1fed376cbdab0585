// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/value.hpp"

/// What a schema says of one parameter, as far as the five type words can say it.
namespace tool_binding::json {

struct SchemaReading {
  /// The type word, none for what no type word can say.
  std::optional<std::string_view> type = {};
  /// What it is when no type word can say it, as "a union".
  std::string undeclarable = {};
  /// Whether a text of its own can stand for what no type word can say, rather than a text that holds JSON.
  bool allows_text = false;
  /// How its type is spelled, when it is spelled otherwise.
  std::string spelling = {};
  /// The schema's members, and those of the schemas that it refers to or combines. One type or null is that type; a
  /// constant is an "enum" of one value.
  ArgumentMap members = {};
  /// The members of alternatives that differ, which say nothing of the whole.
  std::vector<Text> lost = {};
};

/// Reads `schema`, whose references lead into `root`.
[[nodiscard]] SchemaReading read_schema(const Value& schema, const Value& root);

/// Whether a member of a schema says what values are allowed. All others describe, name or illustrate them.
[[nodiscard]] bool is_rule(std::string_view key) noexcept;

/// The member `key` of an object; null where it is left out, and for a value that is no object. Lives as long as the
/// object.
[[nodiscard]] const Value& member_of(const ArgumentMap& object, const Text& key);
[[nodiscard]] const Value& member_of(const Value& object, const Text& key);

}  // namespace tool_binding::json
