// SPDX-License-Identifier: MIT
#pragma once

#include "tool_binding/tool_registry.hpp"

namespace tool_binding::json {

/// The least and the greatest number that admission leaves as it is; null for none. Both are null where no schema says
/// what admission does: for crossed bounds, and for a parameter that is no number or has an enumeration.
struct EffectiveBounds {
  Value minimum = {};
  Value maximum = {};
};

[[nodiscard]] EffectiveBounds effective_bounds(const ParamSpec& param);

/// Whether JSON has words for all of a value: it holds no NaN and no infinity.
[[nodiscard]] bool is_finite(const Value& value);

}  // namespace tool_binding::json
