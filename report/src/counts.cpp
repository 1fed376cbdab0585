// SPDX-License-Identifier: MIT
#include "tool_binding/report/counts.hpp"

#include <algorithm>
#include <functional>
#include <string>

namespace tool_binding::report {

Text shortened(std::string_view text) {
  constexpr std::size_t longest = 240;
  if (text.size() <= longest) {
    return text;
  }
  std::size_t end = longest;
  while (end != 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  return std::string(text.substr(0, end)) + "…";
}

Count& Counts::operator[](const Text& what) {
  const auto found = counts_.find(what);
  if (found != counts_.end()) {
    return found->second;
  }
  if (counts_.size() >= limit_) {
    lower();
  }
  return counts_[what];
}

void Counts::merge(const Counts& later) {
  for (const auto& [what, more] : later.counts_) {
    const auto [place, is_new] = counts_.try_emplace(what, more);
    if (is_new) {
      continue;
    }
    place->second.times += more.times;
    for (const auto& [name, times] : more.lacking) {
      place->second.lacking[name] += times;
    }
  }
  shortfall_ += later.shortfall_;
  if (counts_.size() > limit_) {
    lower();
  }
}

/// Takes from every count what the first one that is not to be kept has.
void Counts::lower() {
  std::vector<std::uint64_t> times;
  for (const auto& [what, count] : counts_) {
    times.push_back(count.times);
  }
  const auto cut = times.begin() + static_cast<std::ptrdiff_t>(limit_ / 2);
  std::nth_element(times.begin(), cut, times.end(), std::greater<>());
  const std::uint64_t less = *cut;
  std::erase_if(counts_, [&](const auto& entry) { return entry.second.times <= less; });
  for (auto& [what, count] : counts_) {
    count.times -= less;
  }
  shortfall_ += less;
}

std::vector<const std::pair<const Text, Count>*> Counts::most_frequent() const {
  std::vector<const std::pair<const Text, Count>*> sorted;
  for (const auto& entry : counts_) {
    sorted.push_back(&entry);
  }
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto* left, const auto* right) { return left->second.times > right->second.times; });
  return sorted;
}

}  // namespace tool_binding::report
