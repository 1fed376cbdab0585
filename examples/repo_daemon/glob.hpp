// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace repo_daemon {

/// A pattern for paths: "?" stands for one character and "*" for any number of them, none of them a "/"; "**" stands
/// for any characters. "**/" also stands for nothing, so that "src/**/a.cpp" matches "src/a.cpp". A pattern without "/"
/// is compared with the last part of a path.
///
/// Matching follows all readings of the pattern at once: its time is the product of the two lengths, at worst.
class Glob {
 public:
  explicit Glob(std::string_view pattern);

  [[nodiscard]] bool matches(std::string_view path) const;

 private:
  enum class Kind { one_character, any_character, within_a_name, anything, directories };
  struct Part {
    Kind kind;
    std::string character = {};
  };
  /// For each part, and for the end, whether the path so far may have led there.
  using Places = std::vector<bool>;

  void enter(Places& places, std::size_t place) const;
  [[nodiscard]] Places after(const Places& places, std::string_view character) const;

  bool of_name_;
  std::vector<Part> parts_;
};

}  // namespace repo_daemon
