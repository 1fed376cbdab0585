// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "near_names/candidates.hpp"
#include "values/small_vector.hpp"

namespace tool_binding {

/// Gestalt pattern matching (Ratcliff and Obershelp) of candidates with one word: the longest block that both have in
/// common, then the same to its left and to its right.
class MatchingBlocks {
 public:
  /// `word` and its positions outlive the object.
  MatchingBlocks(std::u32string_view word, const detail::ClassPositions& positions) noexcept
      : word_(word), positions_(positions) {}

  /// The number of code points in the blocks that `candidate`, as the first sequence, and the word have in common.
  [[nodiscard]] std::size_t matched(std::u32string_view candidate);

 private:
  /// A range of the candidate and a range of the word, each without its end.
  struct Ranges {
    std::size_t first_begin, first_end;
    std::size_t second_begin, second_end;
  };

  /// A run of the candidate that equals a run of the word.
  struct Block {
    std::size_t first, second, size;
  };

  [[nodiscard]] Block longest_block(std::u32string_view candidate, const Ranges& ranges);
  [[nodiscard]] Block block_by_positions(std::u32string_view candidate, const Ranges& ranges) const noexcept;
  [[nodiscard]] std::uint64_t positions_of(char32_t character) const noexcept;
  [[nodiscard]] Block widened(std::u32string_view candidate, const Ranges& ranges, Block block) const;
  void push_unless_empty(const Ranges& ranges);
  void find_popular();

  std::u32string_view word_;
  const detail::ClassPositions& positions_;
  SmallVector<Ranges, 16> pending_;
  SmallVector<std::size_t, 64> runs_;  ///< by position in the word, from 1: the common run that ends there
  std::vector<char32_t> popular_;      ///< characters that no run passes through, sorted
};

}  // namespace tool_binding
