// SPDX-License-Identifier: MIT
#include <algorithm>

#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

bool ParamSpec::required_by(ActionName action) const noexcept {
  const auto& needing = action.name();
  return required || (needing && std::find(required_for.begin(), required_for.end(), *needing) != required_for.end());
}

}  // namespace tool_binding
