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
/// allocates. Whoever sends names to look up cannot make a look-up long: how rows stand is settled by the declared
/// names alone.
class NameIndex {
 public:
  NameIndex() : rows_(1) {}

  static constexpr std::uint32_t absent = 0xFFFFFFFF;

  /// Adds `name`; an earlier entry of the same name stays. Returns whether the name was new.
  bool add(const Text& name, std::uint32_t number);

  /// The number of `name`, or `absent`.
  [[nodiscard]] std::uint32_t find(const Text& name) const noexcept;
  [[nodiscard]] std::uint32_t find(std::string_view name) const noexcept;

 private:
  struct alignas(32) Row {
    Text name;
    std::uint32_t number = absent;
  };

  [[nodiscard]] static std::size_t hash_of(const Cell& cell) noexcept;
  void grow();
  void place(Row row);

  std::vector<Row> rows_;  ///< a power of two of them, at least half of them free
  std::size_t mask_ = 0;   ///< one less than the rows
  std::size_t used_ = 0;
};

inline std::size_t NameIndex::hash_of(const Cell& cell) noexcept {
  if (cell.holds_node()) {
    return std::hash<std::string_view>{}(cell.text());
  }
  // A product's bit depends on no higher bit of its factors: the upper half is folded in first, and the upper half of
  // the product taken, so that names which differ in one byte, whichever it is, stand apart.
  constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
  const std::uint64_t halves = cell.low() ^ std::rotl(cell.high(), 29);
  return ((halves ^ (halves >> 32U)) * odd) >> 32U;
}

inline std::uint32_t NameIndex::find(const Text& name) const noexcept {
  for (std::size_t at = hash_of(cell_of(name)) & mask_;; at = (at + 1) & mask_) {
    if (name == rows_[at].name || rows_[at].number == absent) {
      return rows_[at].number;
    }
  }
}

}  // namespace tool_binding::detail
