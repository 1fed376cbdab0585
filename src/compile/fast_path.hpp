// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "tool_binding/tool_registry.hpp"

namespace tool_binding::detail {

/// Inclusive bounds. What is not a number, they do not hold.
template <class Number>
struct Range {
  Number least = std::numeric_limits<Number>::lowest();
  Number greatest = std::numeric_limits<Number>::max();

  [[nodiscard]] bool hold(Number number) const noexcept { return least <= number && number <= greatest; }
};

/// The fast path: which values a parameter takes unchanged, as far as one look tells. It takes most of what most
/// requests send, which spares them half of what admission costs. What it turns down may still be taken, changed or
/// not, by whoever looks closer.
class FastPath {
 public:
  /// `kind` is that of the parameter's values, and `lowered_enum` its enumeration in lower case.
  FastPath(const ParamSpec& param, Kind kind, bool items_are_texts, const std::vector<Text>& lowered_enum);

  [[nodiscard]] bool takes(const Value& value) const {
    switch (kind_) {
      case Kind::integer:
        return value.to_int64() && integers_.hold(*value.to_int64());
      case Kind::floating:
        return value.is_floating() && floating_.hold(value.floating());
      case Kind::boolean:
        return value.is_boolean() && takes_any_;
      case Kind::text:
        return value.is_text() && (takes_any_ || is_named(value));
      case Kind::list:
        return value.is_list() && (takes_any_ || takes_items(value));
      default:
        return false;
    }
  }

 private:
  [[nodiscard]] bool is_named(const Value& value) const noexcept {
    for (const Text& name : names_) {
      if (value.is(name)) {
        return true;
      }
    }
    return false;
  }
  [[nodiscard]] bool takes_items(const Value& list) const;

  Kind kind_;
  bool takes_any_;                ///< of its kind: there is no enumeration, no rule for items
  bool has_names_;                ///< whether there is an enumeration
  Range<std::int64_t> integers_;  ///< some of those within the bounds
  Range<double> floating_;
  std::vector<Text> names_;  ///< the values of the enumeration that name themselves
};

}  // namespace tool_binding::detail
