// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "node.hpp"
#include "tool_binding/registry_check.hpp"

namespace tool_binding::json {

/// What a registry file says, as far as it has the right shape, and where it has not.
struct RegistryShape {
  std::vector<RegistryEntry> entries;
  std::vector<RegistryFinding> faults;
};

/// An entry stands for every item of "tools", so that both are counted alike; a field of the wrong shape keeps its
/// default.
[[nodiscard]] RegistryShape read_shape(const Node& file);

}  // namespace tool_binding::json
