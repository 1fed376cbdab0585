// SPDX-License-Identifier: MIT
#include <algorithm>

#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

bool ParamSpec::required_by(std::optional<std::string_view> action) const noexcept {
  return required || (action && std::find(required_for.begin(), required_for.end(), *action) != required_for.end());
}

}  // namespace tool_binding
