// SPDX-License-Identifier: MIT
#include "registry/near_candidates.hpp"

#include "text/code_points.hpp"

namespace tool_binding::detail {

NearCandidates::NearCandidates(const std::vector<Text>& names) {
  candidates_.reserve(names.size());
  for (const Text& name : names) {
    const std::u32string decoded = text::decode(name);
    const bool counted = decoded.size() <= ClassCounts::longest_name;
    candidates_.push_back({name, code_points_.size(), decoded.size(), counted ? ClassCounts(decoded) : ClassCounts()});
    code_points_ += decoded;
  }
}

}  // namespace tool_binding::detail
