// SPDX-License-Identifier: MIT
#include "admission/near_names.hpp"
#include "admission/normalizing.hpp"

namespace tool_binding {

void Normalizing::_unknown_parameter(std::string& problem, const Text& name) const {
  problem.append("Unknown parameter '").append(name).append("' for ").append(spec.name()).append(".");
  if (const Text* const near = _nearest(name, prepared.near_params)) {
    const Text& declared = spec.param(*near)->name;
    if (!declared.empty()) {
      problem.append(" Did you mean '").append(declared).append("'?");
    }
  }
  if (spec.params().empty()) {
    problem.append(" It takes none.");
    return;
  }
  problem.append(" It takes: ").append(prepared.joined_param_names).append(".");
}

}  // namespace tool_binding
