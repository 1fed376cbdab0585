// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace repo_daemon {

/// Patterns for paths, of which one must match:
///
/// - "?" stands for one character and "*" for any number of them, none of them a "/";
/// - "**" stands for any characters, and "**/" also for nothing, so that "src/**/a.cpp" matches "src/a.cpp";
/// - "[ch]", "[a-z]" and "[!0-9]" stand for one character of a set, or of none but "/" and the set;
/// - "{hpp,cpp}" stands for either, and may hold patterns;
/// - "\" takes from the next character what it means.
///
/// A pattern without "/" is compared with the last part of a path; one that ends in "/" matches all below it.
///
/// All readings of all patterns are followed at once: the time is the product of the two lengths, at worst. A path is
/// read part by part, so that what a directory's name has come to is worked out once for all that stands in it.
class Glob {
 public:
  static constexpr std::size_t most_patterns = 100;
  static constexpr std::size_t most_bytes = 400;  ///< of all patterns together

  /// Where the patterns may have been followed to: for each part of them, and for the end.
  using Places = std::bitset<most_bytes + 3 * most_patterns + 2>;

  /// For no pattern, any path matches. Throws ArgumentError for more patterns than that, and for one that is never
  /// closed.
  explicit Glob(std::span<const std::string> patterns);

  [[nodiscard]] Places start() const;
  [[nodiscard]] Places after(Places places, std::string_view text) const;
  [[nodiscard]] bool is_end(const Places& places) const { return places[parts_.size()]; }

  [[nodiscard]] bool matches(std::string_view path) const { return is_end(after(start(), path)); }

 private:
  friend class GlobParser;

  enum class Kind { one_of, within_a_name, anything, directory, fork };
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Part {
    Kind kind;
    std::vector<Range> characters = {};  ///< of a set
    bool is_negated = false;             ///< whether the set is of all others
    std::vector<std::size_t> ways = {};  ///< the places that a fork leads to
  };

  void enter(Places& places, std::size_t place) const;
  void follow(Places& next, std::size_t place, char32_t character) const;

  std::vector<Part> parts_;
};

}  // namespace repo_daemon
