// SPDX-License-Identifier: MIT
#include "near_names/matching_blocks.hpp"

#include <algorithm>
#include <bit>

namespace tool_binding {

namespace {

/// A word of this many code points or more has popular characters: those that make up more than a hundredth of it.
constexpr std::size_t popular_from = 200;

}  // namespace

std::size_t MatchingBlocks::matched(std::u32string_view candidate) {
  if (!positions_.are_exact() && runs_.empty()) {
    runs_.assign(word_.size() + 1, 0);
    find_popular();
  }
  std::size_t sum = 0;
  push_unless_empty({0, candidate.size(), 0, word_.size()});
  while (!pending_.empty()) {
    const Ranges ranges = pending_.back();
    pending_.pop_back();
    const Block block = positions_.are_exact() ? block_by_positions(candidate, ranges)
                                               : widened(candidate, ranges, longest_block(candidate, ranges));
    if (block.size == 0) {
      continue;
    }
    sum += block.size;
    push_unless_empty({ranges.first_begin, block.first, ranges.second_begin, block.second});
    push_unless_empty({block.first + block.size, ranges.first_end, block.second + block.size, ranges.second_end});
  }
  return sum;
}

/// The positions of `character` in the word. Precondition: the word's positions are exact.
std::uint64_t MatchingBlocks::positions_of(char32_t character) const noexcept {
  const std::uint64_t positions = positions_.of_class(character);
  return positions == 0 || word_[static_cast<std::size_t>(std::countr_zero(positions))] == character ? positions : 0;
}

/// The same block as below for a word whose positions are exact, as those of most callers are: they are looked at all
/// at once, and the word is too short for popular characters.
MatchingBlocks::Block MatchingBlocks::block_by_positions(std::u32string_view candidate,
                                                         const Ranges& ranges) const noexcept {
  Block best = {ranges.first_begin, ranges.second_begin, 0};
  const std::size_t beyond = detail::ClassPositions::most - (ranges.second_end - ranges.second_begin);
  const std::uint64_t within = ~std::uint64_t{0} >> beyond << ranges.second_begin;
  for (std::size_t first = ranges.first_begin; first + best.size < ranges.first_end; ++first) {
    std::uint64_t ends = 0;  // of the longest runs that begin at `first`
    std::uint64_t longer = positions_of(candidate[first]) & within;
    std::size_t size = 0;
    while (longer != 0) {
      ends = longer;
      ++size;
      longer = first + size == ranges.first_end ? 0 : ends << 1U & positions_of(candidate[first + size]) & within;
    }
    if (size > best.size) {
      best = {first, static_cast<std::size_t>(std::countr_zero(ends)) + 1 - size, size};
    }
  }
  return best;
}

/// Of the longest blocks the one that starts earliest in the candidate, and of those the earliest in the word.
MatchingBlocks::Block MatchingBlocks::longest_block(std::u32string_view candidate, const Ranges& ranges) {
  Block best = {ranges.first_begin, ranges.second_begin, 0};
  std::size_t* const runs_begin = runs_.begin() + ranges.second_begin;
  std::size_t* const runs_end = runs_.begin() + ranges.second_end + 1;
  std::fill(runs_begin, runs_end, 0);
  bool has_runs = false;
  for (std::size_t first = ranges.first_begin; first < ranges.first_end; ++first) {
    const char32_t character = candidate[first];
    if (std::binary_search(popular_.begin(), popular_.end(), character)) {  // it ends every run, and begins none
      std::fill(runs_begin, has_runs ? runs_end : runs_begin, 0);
      has_runs = false;
      continue;
    }
    has_runs = true;
    std::size_t run_before = 0;  // the run that ended one position earlier in both
    for (std::size_t second = ranges.second_begin; second < ranges.second_end; ++second) {
      const std::size_t run = word_[second] == character ? run_before + 1 : 0;
      run_before = runs_[second + 1];
      runs_[second + 1] = run;
      if (run > best.size) {
        best = {first + 1 - run, second + 1 - run, run};
      }
    }
  }
  return best;
}

/// The block with the equal characters on both of its sides, popular ones included.
MatchingBlocks::Block MatchingBlocks::widened(std::u32string_view candidate, const Ranges& ranges, Block block) const {
  while (block.first > ranges.first_begin && block.second > ranges.second_begin &&
         candidate[block.first - 1] == word_[block.second - 1]) {
    --block.first;
    --block.second;
    ++block.size;
  }
  while (block.first + block.size < ranges.first_end && block.second + block.size < ranges.second_end &&
         candidate[block.first + block.size] == word_[block.second + block.size]) {
    ++block.size;
  }
  return block;
}

void MatchingBlocks::push_unless_empty(const Ranges& ranges) {
  if (ranges.first_begin < ranges.first_end && ranges.second_begin < ranges.second_end) {
    pending_.push_back(ranges);
  }
}

void MatchingBlocks::find_popular() {
  if (word_.size() < popular_from) {
    return;
  }
  std::vector<char32_t> sorted(word_.begin(), word_.end());
  std::sort(sorted.begin(), sorted.end());
  for (auto run = sorted.begin(); run != sorted.end();) {
    const auto run_end = std::upper_bound(run, sorted.end(), *run);
    if (static_cast<std::size_t>(run_end - run) > word_.size() / 100 + 1) {
      popular_.push_back(*run);
    }
    run = run_end;
  }
}

}  // namespace tool_binding
