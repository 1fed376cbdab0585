// SPDX-License-Identifier: MIT
#include "effective_bounds.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "tool_binding/detail/numbers.hpp"

namespace tool_binding::json {

namespace {

/// The number that admission clamps a number beyond `bound` to, null where there is none.
Value effective_bound(const ParamSpec& param, const Value& bound) {
  if (bound.is_null() || !is_finite(bound)) {
    return {};
  }
  if (param.type == "integer") {
    return bound.is_floating() ? Value(Integer::truncated(bound.floating())) : bound;
  }
  try {
    const bool is_exact = bound.is_floating() || bound.integer().compare(bound.integer().to_double()) == 0;
    return is_exact ? bound : Value(bound.integer().to_double());
  } catch (const std::overflow_error&) {
    return {};
  }
}

}  // namespace

EffectiveBounds effective_bounds(const ParamSpec& param) {
  const bool is_number = param.type == "integer" || param.type == "number";
  if (!is_number || !param.enum_.empty()) {
    return {};
  }
  EffectiveBounds bounds{effective_bound(param, param.minimum), effective_bound(param, param.maximum)};
  const bool are_both = !bounds.minimum.is_null() && !bounds.maximum.is_null();
  return are_both && compare_numbers(bounds.minimum, bounds.maximum) > 0 ? EffectiveBounds{} : bounds;
}

bool is_finite(const Value& value) {
  switch (value.kind()) {
    case Kind::floating:
      return std::isfinite(value.floating());
    case Kind::list:
      return std::all_of(value.list().begin(), value.list().end(), is_finite);
    case Kind::mapping:
      return std::all_of(value.mapping().begin(), value.mapping().end(),
                         [](const auto& entry) { return is_finite(entry.value); });
    default:
      return true;
  }
}

}  // namespace tool_binding::json
