// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Gestalt pattern matching as the textbook has it, with nothing done for speed: what the layer's search is held to.
namespace tool_binding::textbook {

/// The characters in the matching blocks of `a` and `b`, where no block begins or grows through one of `popular`.
inline std::size_t matched(std::u32string_view a, std::u32string_view b, const std::u32string& popular) {
  std::size_t best_i = 0, best_j = 0, k = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j) {
      std::size_t run = 0;
      while (i + run < a.size() && j + run < b.size() && a[i + run] == b[j + run] &&
             popular.find(a[i + run]) == popular.npos) {
        ++run;
      }
      if (run > k) {
        best_i = i, best_j = j, k = run;
      }
    }
  }
  for (; best_i > 0 && best_j > 0 && a[best_i - 1] == b[best_j - 1]; ++k) {
    --best_i, --best_j;
  }
  for (; best_i + k < a.size() && best_j + k < b.size() && a[best_i + k] == b[best_j + k]; ++k) {
  }
  return k == 0 ? 0
                : k + matched(a.substr(0, best_i), b.substr(0, best_j), popular) +
                      matched(a.substr(best_i + k), b.substr(best_j + k), popular);
}

inline std::optional<std::u32string> nearest(const std::u32string& word, const std::vector<std::u32string>& names) {
  std::u32string popular;
  for (const char32_t character : word) {
    const auto count = static_cast<std::size_t>(std::count(word.begin(), word.end(), character));
    popular.append(word.size() >= 200 && count > word.size() / 100 + 1 ? 1 : 0, character);
  }
  std::optional<std::u32string> best;
  double best_ratio = 0.6;
  for (const std::u32string& name : names) {
    const auto total = static_cast<double>(name.size() + word.size());
    const double ratio = total == 0 ? 1.0 : 2.0 * static_cast<double>(matched(name, word, popular)) / total;
    if (ratio > best_ratio || (ratio == best_ratio && (!best || name > *best))) {
      best = name;
      best_ratio = ratio;
    }
  }
  return best;
}

}  // namespace tool_binding::textbook
