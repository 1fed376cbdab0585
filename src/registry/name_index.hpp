// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::detail {

/// From declared names to numbers, filled once and then only read: one probe for most look-ups, none of which
/// allocates. Whoever sends names to look up cannot make a look-up long: where rows are is settled by the declared
/// names alone.
class NameIndex {
 public:
  NameIndex() : rows_(2) {}

  static constexpr std::uint32_t absent = 0xFFFFFFFF;

  /// Adds `name`; an earlier entry of the same name stays. Returns whether the name was new.
  bool add(const Text& name, std::uint32_t number);

  /// Makes room for `more` names: so many are then added without a failure.
  void reserve(std::size_t more);

  /// The number of `name`, or `absent`.
  [[nodiscard]] std::uint32_t find(const Text& name) const noexcept;
  [[nodiscard]] std::uint32_t find(std::string_view name) const noexcept;

 private:
  struct alignas(32) Row {
    Text name;
    std::uint32_t number = absent;
  };

  [[nodiscard]] std::size_t row_of(const Cell& cell) const noexcept;
  [[nodiscard]] std::size_t row_of(std::string_view long_name) const noexcept;
  [[nodiscard]] std::size_t row_after(std::size_t at) const noexcept { return (at + 1) & (rows_.size() - 1); }
  void grow_to(std::size_t size);
  void insert(Row row);

  std::vector<Row> rows_;  ///< a power of two of them, at least half of them free
  int shift_ = 63;         ///< what takes a hash of 64 bits to an index among them
  std::size_t used_ = 0;
};

// Fibonacci hashing: the upper bits of the product depend on every bit of its factor, so that names which differ in one
// byte, whichever it is, are kept apart.

inline constexpr std::uint64_t golden_ratio = 0x9E3779B97F4A7C15;

inline std::size_t NameIndex::row_of(std::string_view long_name) const noexcept {
  return (std::hash<std::string_view>{}(long_name)*golden_ratio) >> shift_;
}

inline std::size_t NameIndex::row_of(const Cell& cell) const noexcept {
  if (cell.holds_node()) {
    return row_of(cell.text());
  }
  return ((cell.low() ^ std::rotl(cell.high(), 29)) * golden_ratio) >> shift_;
}

inline std::uint32_t NameIndex::find(const Text& name) const noexcept {
  for (std::size_t at = row_of(cell_of(name));; at = row_after(at)) {
    if (name == rows_[at].name || rows_[at].number == absent) {
      return rows_[at].number;
    }
  }
}

}  // namespace tool_binding::detail
