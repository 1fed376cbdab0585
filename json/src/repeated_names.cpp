// SPDX-License-Identifier: MIT
#include "repeated_names.hpp"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace tool_binding::json {

namespace {

/// Up to this many names are compared each with each, which allocates nothing.
constexpr std::size_t compared_in_a_row = 16;

/// One bit of 64, the same for equal names.
std::uint64_t mark_of(const Text& name) noexcept {
  const detail::Cell& cell = detail::cell_of(name);
  const std::uint64_t bytes = cell.holds_node() ? name.size() : cell.low() ^ cell.high();
  constexpr std::uint64_t golden_ratio = 0x9E3779B97F4A7C15;
  return std::uint64_t{1} << (bytes * golden_ratio >> 58U);
}

/// A name is compared with those before it only where one of them has its mark.
std::vector<std::size_t> repeated_among_few(std::span<const Text> names) {
  std::vector<std::size_t> repeated;
  std::uint64_t marks = 0;
  for (std::size_t index = 0; index < names.size(); ++index) {
    const std::uint64_t mark = mark_of(names[index]);
    const auto earlier = names.first(index);
    if ((marks & mark) != 0 && std::find(earlier.begin(), earlier.end(), names[index]) != earlier.end()) {
      repeated.push_back(index);
    }
    marks |= mark;
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
