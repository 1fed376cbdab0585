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
  std::string unsayable = {};
  /// How its type is spelled, when it is spelled otherwise.
  std::string spelling = {};
  /// The schema's members. One type or null is that type: the other alternative's members stand here too.
  ArgumentMap members = {};
};

[[nodiscard]] SchemaReading read_schema(const Value& schema);

/// The texts that the values of an enumeration are to a parameter of that type, in order; no value where one of them
/// has no text. A null, which stands for an argument left out, has no part in it.
[[nodiscard]] std::optional<std::vector<Text>> enumeration_texts(std::string_view type, const Value& values);

/// The text that an enumeration's value is to a parameter of that type, null where it has none.
[[nodiscard]] Value enumeration_text(std::string_view type, const Value& value);

}  // namespace tool_binding::json
