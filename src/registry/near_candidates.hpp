// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::detail {

/// How often characters occur in a short name, counted by class: characters that are alike in their low bits share one.
/// What two names have in common by class is never less than what they have in common by character.
class ClassCounts {
 public:
  /// Names longer than this have no counts: one of them could not be held.
  static constexpr std::size_t longest_name = 255;

  ClassCounts() = default;
  explicit ClassCounts(std::u32string_view name) noexcept {
    for (const char32_t character : name) {
      ++counts_[character % counts_.size()];
    }
  }

  /// The sum of the smaller counts.
  [[nodiscard]] std::size_t in_common(const ClassCounts& other) const noexcept {
    std::size_t sum = 0;
    for (std::size_t place = 0; place < counts_.size(); ++place) {
      sum += std::min(counts_[place], other.counts_[place]);
    }
    return sum;
  }

 private:
  std::array<std::uint8_t, 32> counts_ = {};
};

/// The names that a near-name search can suggest, with what of the search does not depend on the word.
class NearCandidates {
 public:
  struct Candidate {
    Text name;
    std::size_t begin;   ///< of its code points among all
    std::size_t size;    ///< in code points
    ClassCounts counts;  ///< of a name no longer than ClassCounts::longest_name
  };

  /// The names in the order in which they are searched; one that stands twice changes nothing.
  explicit NearCandidates(const std::vector<Text>& names);

  [[nodiscard]] const std::vector<Candidate>& all() const noexcept { return candidates_; }
  [[nodiscard]] std::u32string_view code_points(const Candidate& candidate) const noexcept {
    return std::u32string_view(code_points_).substr(candidate.begin, candidate.size);
  }

 private:
  std::vector<Candidate> candidates_;
  std::u32string code_points_;
};

}  // namespace tool_binding::detail
