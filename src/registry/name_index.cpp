// SPDX-License-Identifier: MIT
#include "registry/name_index.hpp"

#include <functional>
#include <utility>

namespace tool_binding::detail {

namespace {

constexpr std::size_t smallest_table = 8;

std::size_t hash_of(const Cell& cell) noexcept {
  if (cell.holds_node()) {
    return std::hash<std::string_view>{}(cell.text());
  }
  constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
  std::uint64_t mixed = (cell.low() * odd) ^ cell.high();
  mixed = (mixed ^ (mixed >> 32U)) * odd;
  return mixed ^ (mixed >> 29U);
}

}  // namespace

bool NameIndex::add(const Text& name, std::uint32_t number) {
  if (find(name) != absent) {
    return false;
  }
  if (2 * (used_ + 1) > rows_.size()) {
    grow();
  }
  place({name, number});
  ++used_;
  return true;
}

std::uint32_t NameIndex::find(const Text& name) const noexcept {
  if (rows_.empty()) {
    return absent;
  }
  const std::size_t mask = rows_.size() - 1;
  for (std::size_t at = hash_of(cell_of(name)) & mask;; at = (at + 1) & mask) {
    if (rows_[at].number == absent || rows_[at].name == name) {
      return rows_[at].number;
    }
  }
}

std::uint32_t NameIndex::find(std::string_view name) const noexcept {
  if (name.size() <= inline_text_size) {
    return find(Text(name));
  }
  if (rows_.empty()) {
    return absent;
  }
  const std::size_t mask = rows_.size() - 1;
  for (std::size_t at = std::hash<std::string_view>{}(name)&mask;; at = (at + 1) & mask) {
    if (rows_[at].number == absent || rows_[at].name == name) {
      return rows_[at].number;
    }
  }
}

void NameIndex::grow() {
  std::vector<Row> before(rows_.empty() ? smallest_table : 2 * rows_.size());
  before.swap(rows_);
  for (Row& row : before) {
    if (row.number != absent) {
      place(std::move(row));
    }
  }
}

void NameIndex::place(Row row) {
  const std::size_t mask = rows_.size() - 1;
  std::size_t at = hash_of(cell_of(row.name)) & mask;
  while (rows_[at].number != absent) {
    at = (at + 1) & mask;
  }
  rows_[at] = std::move(row);
}

}  // namespace tool_binding::detail
