// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::detail {

/// Characters that are alike in their low bits share a class: what two names have in common by class is never less than
/// what they have in common by character.
inline constexpr std::size_t character_classes = 64;
[[nodiscard]] constexpr std::size_t class_of(char32_t character) noexcept { return character % character_classes; }

/// The number of bits that are set. Where two names have little in common this is sooner done than by the compiler's
/// own count, which is a call on a machine that is not known to have an instruction for it.
[[nodiscard]] constexpr std::size_t count_of(std::uint64_t bits) noexcept {
  std::size_t count = 0;
  for (; bits != 0; bits &= bits - 1) {
    ++count;
  }
  return count;
}

/// The classes of a name's characters.
struct ClassSet {
  std::uint64_t members = 0;
  std::size_t repeats = 0;  ///< how many characters are of a class that an earlier one is of

  ClassSet() = default;
  explicit ClassSet(std::u32string_view name) noexcept;

  /// No less than the characters that the two names can have in common, whatever their order.
  [[nodiscard]] std::size_t in_common(const ClassSet& other) const noexcept {
    return count_of(members & other.members) + std::min(repeats, other.repeats);
  }
};

/// Where the characters of a word are: a bit for each of its first 64 positions, by the class of the character there.
class ClassPositions {
 public:
  static constexpr std::size_t most = 64;

  ClassPositions() = default;
  explicit ClassPositions(std::u32string_view word) noexcept;

  [[nodiscard]] std::uint64_t of_class(char32_t character) const noexcept { return positions_[class_of(character)]; }

  /// Whether these are all positions of the word, and no class has two of its characters.
  [[nodiscard]] bool are_exact() const noexcept { return exact_; }

 private:
  std::array<std::uint64_t, character_classes> positions_ = {};
  bool exact_ = true;
};

/// The names that a near-name search can suggest, with what of the search does not depend on the word.
class NearCandidates {
 public:
  struct Candidate {
    Text name;
    std::size_t begin;  ///< of its code points among all
    std::size_t size;   ///< in code points
    ClassSet classes;
  };

  /// One that occurs twice changes nothing.
  explicit NearCandidates(const std::vector<Text>& names);

  /// Those of fewer than `size` code points, and the others; in both the shorter come before the longer.
  struct Halves {
    std::span<const Candidate> shorter, others;
  };
  [[nodiscard]] Halves split_at(std::size_t size) const noexcept {
    const std::span<const Candidate> all = candidates_;
    const std::size_t at = begins_[std::min(size, begins_.size() - 1)];
    return {all.first(at), all.subspan(at)};
  }

  [[nodiscard]] std::u32string_view code_points(const Candidate& candidate) const noexcept {
    return std::u32string_view(code_points_).substr(candidate.begin, candidate.size);
  }

 private:
  std::vector<Candidate> candidates_;
  std::vector<std::size_t> begins_;  ///< by a size, the place of the first candidate that has no less
  std::u32string code_points_;
};

}  // namespace tool_binding::detail
