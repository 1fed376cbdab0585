// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/tool_registry.hpp"

/// What the values of a schema's enumeration are to admission, which reads texts.
namespace tool_binding::json {

struct EnumerationReading {
  /// The values, in order and each once; empty where they say nothing beyond the type, or cannot be said.
  std::vector<Text> texts = {};
  /// The type that all of them can be sent as.
  std::string_view type;
  /// Bounds that say the same for whole numbers without a gap, else null.
  Value minimum = {};
  Value maximum = {};
  /// Why the enumeration is lost; empty where it is not.
  std::string lost = {};
  /// What calls or handlers notice, each in words.
  std::vector<std::string> noticed = {};
};

/// Reads the values of a parameter of that type. A null, which stands for an argument left out, has no part in it.
[[nodiscard]] EnumerationReading read_enumeration(std::string_view type, const Value& values);

/// Reads the values of a list's items, which admission takes as they come and compares by their plain form.
[[nodiscard]] EnumerationReading read_item_enumeration(const Value& values);

}  // namespace tool_binding::json
