// SPDX-License-Identifier: MIT
#include "near_names/nearest.hpp"

#include <algorithm>
#include <cstdint>

#include "near_names/matching_blocks.hpp"
#include "text/code_points.hpp"
#include "values/small_vector.hpp"

namespace tool_binding {

namespace {

using detail::NearCandidates;

class CodePoints {
 public:
  explicit CodePoints(std::string_view text) {
    while (!text.empty()) {
      const text::CodePoint next = text::next_code_point(text);
      code_points_.push_back(next.value);
      text.remove_prefix(next.size);
    }
  }
  [[nodiscard]] std::u32string_view view() const noexcept { return {code_points_.data(), code_points_.size()}; }

 private:
  SmallVector<char32_t, detail::ClassPositions::most> code_points_;
};

/// The word of one search, with what its comparison with every candidate needs.
class Word {
 public:
  explicit Word(std::string_view name) : code_points_(name), classes_(view()), positions_(view()) {}

  [[nodiscard]] std::size_t size() const noexcept { return view().size(); }
  [[nodiscard]] std::u32string_view view() const noexcept { return code_points_.view(); }
  [[nodiscard]] const detail::ClassPositions& positions() const noexcept { return positions_; }

  /// No less than the code points that the word and `candidate` can have matched, whichever way.
  [[nodiscard]] std::size_t class_bound(const NearCandidates::Candidate& candidate) const noexcept {
    return classes_.in_common(candidate.classes);
  }

  /// The same by their order: what is matched is a common subsequence. The length of the longest one is counted 64
  /// positions at once (Hyyrö's bit-parallel method); classes of characters stand for characters. Of a longer word, all
  /// further code points are taken to match.
  [[nodiscard]] std::size_t order_bound(std::u32string_view candidate) const noexcept {
    std::uint64_t unmatched = ~std::uint64_t{0};
    for (const char32_t character : candidate) {
      const std::uint64_t matched = unmatched & positions_.of_class(character);
      unmatched = (unmatched + matched) | (unmatched - matched);
    }
    return detail::count_of(~unmatched) +
           (std::max(size(), detail::ClassPositions::most) - detail::ClassPositions::most);
  }

 private:
  CodePoints code_points_;
  detail::ClassSet classes_;
  detail::ClassPositions positions_;
};

/// The best candidate so far. Similarities are compared as the fractions that they are.
class Best {
 public:
  /// Whether a candidate of which at most `matched` of `total` code points match can still be it.
  [[nodiscard]] bool can_be(std::size_t matched, std::size_t total) const noexcept {
    return matched * total_ >= matched_ * total;
  }

  void offer(const NearCandidates::Candidate& candidate, std::u32string_view code_points, std::size_t matched,
             std::size_t total) {
    if (total == 0) {
      return offer(candidate, code_points, 1, 2);  // two empty names are equal
    }
    const bool is_better = matched * total_ > matched_ * total;
    if (is_better || (can_be(matched, total) && (name_ == nullptr || code_points > code_points_))) {
      name_ = &candidate.name;
      code_points_ = code_points;
      matched_ = matched;
      total_ = total;
    }
  }

  [[nodiscard]] const Text* name() const noexcept { return name_; }

 private:
  const Text* name_ = nullptr;
  std::u32string_view code_points_;
  std::size_t matched_ = 3;  ///< of `total_`: what is good enough while there is none
  std::size_t total_ = 10;
  static_assert(2 * 3 / 10.0 == NEAR_NAME_CUTOFF);
};

class Search {
 public:
  Search(std::string_view name, const NearCandidates& candidates)
      : candidates_(candidates), word_(name), blocks_(word_.view(), word_.positions()) {}

  /// The candidates nearest to the word in size come first: the better the best is, the fewer are looked at closely.
  [[nodiscard]] const Text* nearest() {
    const auto [shorter, others] = candidates_.split_at(word_.size());
    for (auto candidate = others.begin(); candidate != others.end() && size_allows(*candidate); ++candidate) {
      consider(*candidate);
    }
    for (auto candidate = shorter.rbegin(); candidate != shorter.rend() && size_allows(*candidate); ++candidate) {
      consider(*candidate);
    }
    return best_.name();
  }

 private:
  using Candidate = NearCandidates::Candidate;

  [[nodiscard]] bool size_allows(const Candidate& candidate) const noexcept {
    return best_.can_be(std::min(candidate.size, word_.size()), candidate.size + word_.size());
  }

  void consider(const Candidate& candidate) {
    const std::size_t total = candidate.size + word_.size();
    if (!best_.can_be(word_.class_bound(candidate), total)) {
      return;
    }
    const std::u32string_view code_points = candidates_.code_points(candidate);
    if (best_.can_be(word_.order_bound(code_points), total)) {
      best_.offer(candidate, code_points, blocks_.matched(code_points), total);
    }
  }

  const NearCandidates& candidates_;
  Word word_;
  MatchingBlocks blocks_;
  Best best_;
};

}  // namespace

const Text* _nearest(std::string_view name, const NearCandidates& candidates) {
  return Search(name, candidates).nearest();
}

}  // namespace tool_binding
