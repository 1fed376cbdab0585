// SPDX-License-Identifier: MIT
#include "repeated_names.hpp"

#include <algorithm>
#include <numeric>

namespace tool_binding::json {

namespace {

/// Up to this many names are compared each with each, which allocates nothing.
constexpr std::size_t compared_in_a_row = 16;

std::vector<std::size_t> repeated_among_few(std::span<const Text> names) {
  std::vector<std::size_t> repeated;
  for (std::size_t index = 1; index < names.size(); ++index) {
    const auto earlier = names.first(index);
    if (std::find(earlier.begin(), earlier.end(), names[index]) != earlier.end()) {
      repeated.push_back(index);
    }
  }
  return repeated;
}

}  // namespace

std::vector<std::size_t> repeated_names(std::span<const Text> names) {
  if (names.size() <= compared_in_a_row) {
    return repeated_among_few(names);
  }
  std::vector<std::size_t> indexes(names.size());
  std::iota(indexes.begin(), indexes.end(), std::size_t{0});
  std::sort(indexes.begin(), indexes.end(), [&](std::size_t left, std::size_t right) {
    const auto order = names[left] <=> names[right];
    return order == 0 ? left < right : order < 0;
  });
  std::vector<std::size_t> repeated;
  for (std::size_t index = 1; index < indexes.size(); ++index) {
    if (names[indexes[index]] == names[indexes[index - 1]]) {
      repeated.push_back(indexes[index]);
    }
  }
  std::sort(repeated.begin(), repeated.end());
  return repeated;
}

}  // namespace tool_binding::json
