// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "near_names/candidates.hpp"

/// The one near-name search of the layer.
namespace tool_binding {

/// The similarity that a suggested name has at least.
inline constexpr double NEAR_NAME_CUTOFF = 0.6;

/// The candidate most similar to `name`, null when none reaches NEAR_NAME_CUTOFF; of two equally similar ones the
/// greater by code points. The similarity is 2 * M / T, where T is the code points of both and M those that gestalt
/// pattern matching (Ratcliff and Obershelp) pairs, the candidate being the first sequence: it is not symmetric.
/// The pointer lives as long as `candidates`.
[[nodiscard]] const Text* _nearest(std::string_view name, const detail::NearCandidates& candidates);

}  // namespace tool_binding
