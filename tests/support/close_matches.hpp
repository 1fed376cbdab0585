// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Gestalt pattern matching as the textbook has it, with nothing done for speed: what the layer's search is held to.
namespace tool_binding::textbook {

class Matcher {
 public:
  Matcher(const std::u32string& a, const std::u32string& b) : a_(a), b_(b) {
    for (std::size_t j = 0; j < b.size(); ++j) {
      places_[b[j]].push_back(j);
    }
    if (b.size() >= 200) {
      std::erase_if(places_, [&](const auto& entry) { return entry.second.size() > b.size() / 100 + 1; });
    }
  }

  double ratio() const {
    const std::size_t total = a_.size() + b_.size();
    return total == 0 ? 1.0 : 2.0 * static_cast<double>(matched(0, a_.size(), 0, b_.size())) / double(total);
  }

 private:
  std::size_t matched(std::size_t alo, std::size_t ahi, std::size_t blo, std::size_t bhi) const {
    std::size_t best_i = alo, best_j = blo, k = 0;
    std::map<std::size_t, std::size_t> ending;
    for (std::size_t i = alo; i < ahi; ++i) {
      std::map<std::size_t, std::size_t> ending_here;
      const auto places = places_.find(a_[i]);
      for (const std::size_t j : places == places_.end() ? std::vector<std::size_t>() : places->second) {
        if (j < blo || j >= bhi) {
          continue;
        }
        const auto before = j == 0 ? ending.end() : ending.find(j - 1);
        const std::size_t run = ending_here[j] = before == ending.end() ? 1 : before->second + 1;
        if (run > k) {
          best_i = i + 1 - run, best_j = j + 1 - run, k = run;
        }
      }
      ending.swap(ending_here);
    }
    while (best_i > alo && best_j > blo && a_[best_i - 1] == b_[best_j - 1]) {
      --best_i, --best_j, ++k;
    }
    while (best_i + k < ahi && best_j + k < bhi && a_[best_i + k] == b_[best_j + k]) {
      ++k;
    }
    return k == 0 ? 0 : k + matched(alo, best_i, blo, best_j) + matched(best_i + k, ahi, best_j + k, bhi);
  }

  const std::u32string& a_;
  const std::u32string& b_;
  std::map<char32_t, std::vector<std::size_t>> places_;
};

inline std::optional<std::u32string> nearest(const std::u32string& word, const std::vector<std::u32string>& names) {
  std::optional<std::u32string> best;
  double best_ratio = 0.6;
  for (const std::u32string& name : names) {
    const double ratio = Matcher(name, word).ratio();
    if (ratio > best_ratio || (ratio == best_ratio && (!best || name > *best))) {
      best = name;
      best_ratio = ratio;
    }
  }
  return best;
}

}  // namespace tool_binding::textbook
