// SPDX-License-Identifier: MIT
#include "admission/near_names.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <memory_resource>

#include "admission/matching_blocks.hpp"
#include "text/code_points.hpp"

namespace tool_binding {

namespace {

using detail::ClassCounts;
using detail::NearCandidates;

/// Enough for names of some 60 code points; a longer word takes its room from the heap.
using SearchMemory = std::array<std::byte, 4096>;

double ratio(std::size_t matched, std::size_t total) noexcept {
  return total == 0 ? 1.0 : 2.0 * static_cast<double>(matched) / static_cast<double>(total);
}

/// The word of one search, with what its comparison with every candidate needs.
class Word {
 public:
  Word(std::string_view name, std::pmr::memory_resource* memory) : code_points_(memory) {
    code_points_.reserve(name.size());
    while (!name.empty()) {
      const text::CodePoint next = text::next_code_point(name);
      code_points_.push_back(next.value);
      name.remove_prefix(next.size);
    }
    if (size() <= ClassCounts::longest_name) {
      counts_ = ClassCounts(view());
    }
    if (size() <= places_.size()) {
      mark_places();
    }
  }

  [[nodiscard]] std::size_t size() const noexcept { return code_points_.size(); }
  [[nodiscard]] std::u32string_view view() const noexcept { return {code_points_.data(), size()}; }

  /// No less than the code points that the word and `candidate` can have matched, whichever way.
  [[nodiscard]] std::size_t count_bound(const NearCandidates::Candidate& candidate) const noexcept {
    const bool counted = std::max(size(), candidate.size) <= ClassCounts::longest_name;
    return counted ? counts_.in_common(candidate.counts) : std::min(size(), candidate.size);
  }

  /// The same by their order: what is matched is a common subsequence. The length of the longest one is counted 64
  /// places at once (Hyyrö's bit-parallel method); classes of characters stand for characters, as in the counts.
  [[nodiscard]] std::size_t order_bound(std::u32string_view candidate) const noexcept {
    if (size() > 64) {
      return std::min(size(), candidate.size());
    }
    std::uint64_t unmatched = ~std::uint64_t{0};
    for (const char32_t character : candidate) {
      const std::uint64_t matched = unmatched & places_[character % places_.size()];
      unmatched = (unmatched + matched) | (unmatched - matched);
    }
    return static_cast<std::size_t>(std::popcount(~unmatched));
  }

 private:
  void mark_places() noexcept {
    for (std::size_t place = 0; place < size(); ++place) {
      places_[code_points_[place] % places_.size()] |= std::uint64_t{1} << place;
    }
  }

  std::pmr::vector<char32_t> code_points_;
  ClassCounts counts_;
  std::array<std::uint64_t, 64> places_ = {};  ///< of the word's characters, by class; of a word of at most 64
};

/// The best candidate so far.
class Best {
 public:
  /// Whether a candidate of which at most `matched` of `total` code points match can still be it.
  [[nodiscard]] bool can_be(std::size_t matched, std::size_t total) const noexcept {
    const double similarity = ratio(matched, total);
    return similarity >= NEAR_NAME_CUTOFF && (name_ == nullptr || similarity >= similarity_);
  }

  void offer(const NearCandidates::Candidate& candidate, std::u32string_view code_points, double similarity) {
    if (similarity < NEAR_NAME_CUTOFF || (name_ != nullptr && similarity < similarity_)) {
      return;
    }
    if (name_ == nullptr || similarity > similarity_ || code_points > code_points_) {
      name_ = &candidate.name;
      code_points_ = code_points;
      similarity_ = similarity;
    }
  }

  [[nodiscard]] const Text* name() const noexcept { return name_; }

 private:
  const Text* name_ = nullptr;
  std::u32string_view code_points_;
  double similarity_ = 0;
};

}  // namespace

const Text* _nearest(std::string_view name, const NearCandidates& candidates) {
  SearchMemory room;
  std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
  const Word word(name, &memory);
  MatchingBlocks blocks(word.view(), &memory);
  Best best;
  for (const NearCandidates::Candidate& candidate : candidates.all()) {
    const std::size_t total = candidate.size + word.size();
    const std::size_t shorter = std::min(candidate.size, word.size());
    // The cutoff in integers: no division for the many names that are much longer or much shorter than the word.
    if (10 * shorter < 3 * total || !best.can_be(shorter, total) || !best.can_be(word.count_bound(candidate), total)) {
      continue;
    }
    const std::u32string_view code_points = candidates.code_points(candidate);
    if (best.can_be(word.order_bound(code_points), total)) {
      best.offer(candidate, code_points, ratio(blocks.matched(code_points), total));
    }
  }
  return best.name();
}

}  // namespace tool_binding
