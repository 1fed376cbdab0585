// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// The near-name search as its definition reads, with the two cheap bounds that belong to it: what the layer's own
/// search is measured against. Each word is compared with every name anew.
namespace tool_binding::bench {

class TextbookSearch {
 public:
  explicit TextbookSearch(std::string_view word) : word_(word) {
    for (std::size_t place = 0; place < word.size(); ++place) {
      places_[word[place]].push_back(place);
    }
  }

  /// The name most similar to the word, empty when none has a similarity of 0.6; of equal ones the greater.
  [[nodiscard]] std::string_view nearest(const std::vector<std::string>& names) {
    std::string_view best;
    double best_ratio = cutoff;
    for (const std::string_view name : names) {
      if (ratio(std::min(name.size(), word_.size()), name) < cutoff || ratio(in_common(name), name) < cutoff) {
        continue;
      }
      const double similarity = ratio(matched(name, 0, name.size(), 0, word_.size()), name);
      if (similarity > best_ratio || (similarity == best_ratio && name > best)) {
        best = name;
        best_ratio = similarity;
      }
    }
    return best;
  }

 private:
  static constexpr double cutoff = 0.6;

  [[nodiscard]] double ratio(std::size_t matched, std::string_view name) const {
    return 2.0 * static_cast<double>(matched) / static_cast<double>(name.size() + word_.size());
  }

  [[nodiscard]] std::size_t in_common(std::string_view name) const {
    std::unordered_map<char, std::size_t> left;
    for (const char character : word_) {
      ++left[character];
    }
    return static_cast<std::size_t>(std::count_if(name.begin(), name.end(), [&](char character) {
      const auto found = left.find(character);
      return found != left.end() && found->second-- > 0;
    }));
  }

  /// The characters of the longest block that name[a, a_end) and word[b, b_end) have in common, and of those beside it.
  [[nodiscard]] std::size_t matched(std::string_view name, std::size_t a, std::size_t a_end, std::size_t b,
                                    std::size_t b_end) const {
    std::size_t best_a = a, best_b = b, best = 0;
    std::unordered_map<std::size_t, std::size_t> runs;
    for (std::size_t place = a; place < a_end; ++place) {
      std::unordered_map<std::size_t, std::size_t> longer;
      const auto found = places_.find(name[place]);
      for (const std::size_t in_word : found == places_.end() ? std::vector<std::size_t>() : found->second) {
        if (in_word < b || in_word >= b_end) {
          continue;
        }
        const auto before = in_word == 0 ? runs.end() : runs.find(in_word - 1);
        const std::size_t run = longer[in_word] = before == runs.end() ? 1 : before->second + 1;
        if (run > best) {
          best_a = place + 1 - run, best_b = in_word + 1 - run, best = run;
        }
      }
      runs = std::move(longer);
    }
    return best == 0
               ? 0
               : best + matched(name, a, best_a, b, best_b) + matched(name, best_a + best, a_end, best_b + best, b_end);
  }

  std::string_view word_;
  std::unordered_map<char, std::vector<std::size_t>> places_;
};

}  // namespace tool_binding::bench
