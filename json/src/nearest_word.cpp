// SPDX-License-Identifier: MIT
#include "nearest_word.hpp"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace tool_binding::json {

namespace {

char lowered(char byte) noexcept { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

/// The bytes to change, leave out or add that make one text of the other, ASCII case apart.
std::size_t edit_distance(std::string_view left, std::string_view right) {
  std::vector<std::size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char byte : left) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < right.size(); ++j) {
      const std::size_t changed = diagonal + (lowered(byte) == lowered(right[j]) ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string did_you_mean(std::string_view given, std::span<const std::string_view> words) {
  std::string_view nearest;
  std::size_t distance = given.size() / 3 + 1;
  for (const std::string_view word : words) {
    const std::size_t gap = std::max(word.size(), given.size()) - std::min(word.size(), given.size());
    if (gap >= distance) {
      continue;
    }
    if (const std::size_t found = edit_distance(given, word); found < distance) {
      nearest = word;
      distance = found;
    }
  }
  return nearest.empty() ? "" : "; did you mean '" + std::string(nearest) + "'?";
}

}  // namespace tool_binding::json
