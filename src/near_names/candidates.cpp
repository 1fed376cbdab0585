// SPDX-License-Identifier: MIT
#include "near_names/candidates.hpp"

#include <algorithm>
#include <bit>

#include "text/code_points.hpp"

namespace tool_binding::detail {

ClassSet::ClassSet(std::u32string_view name) noexcept {
  for (const char32_t character : name) {
    const std::uint64_t member = std::uint64_t{1} << class_of(character);
    repeats += (members & member) == 0 ? 0 : 1;
    members |= member;
  }
}

ClassPositions::ClassPositions(std::u32string_view word) noexcept : exact_(word.size() <= most) {
  for (std::size_t position = 0; position < std::min(word.size(), most); ++position) {
    std::uint64_t& positions = positions_[class_of(word[position])];
    exact_ =
        exact_ && (positions == 0 || word[static_cast<std::size_t>(std::countr_zero(positions))] == word[position]);
    positions |= std::uint64_t{1} << position;
  }
}

NearCandidates::NearCandidates(const std::vector<Text>& names) {
  candidates_.reserve(names.size());
  for (const Text& name : names) {
    const std::u32string decoded = text::decode(name);
    candidates_.push_back({name, code_points_.size(), decoded.size(), ClassSet(decoded)});
    code_points_ += decoded;
  }
  std::stable_sort(candidates_.begin(), candidates_.end(),
                   [](const Candidate& left, const Candidate& right) { return left.size < right.size; });
  for (std::size_t place = 0; place < candidates_.size(); ++place) {
    begins_.resize(std::max(begins_.size(), candidates_[place].size + 1), place);
  }
  begins_.push_back(candidates_.size());
}

}  // namespace tool_binding::detail
