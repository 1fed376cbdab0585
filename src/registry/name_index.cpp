// SPDX-License-Identifier: MIT
#include "registry/name_index.hpp"

#include <algorithm>
#include <utility>

namespace tool_binding::detail {

namespace {

constexpr std::size_t smallest_table = 8;

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

std::uint32_t NameIndex::find(std::string_view name) const noexcept {
  if (name.size() <= inline_text_size) {
    return find(Text(name));
  }
  for (std::size_t at = std::hash<std::string_view>{}(name)&mask_;; at = (at + 1) & mask_) {
    if (rows_[at].number == absent || rows_[at].name == name) {
      return rows_[at].number;
    }
  }
}

void NameIndex::grow() {
  std::vector<Row> before(std::max(smallest_table, 2 * rows_.size()));
  before.swap(rows_);
  mask_ = rows_.size() - 1;
  for (Row& row : before) {
    if (row.number != absent) {
      place(std::move(row));
    }
  }
}

void NameIndex::place(Row row) {
  std::size_t at = hash_of(cell_of(row.name)) & mask_;
  while (rows_[at].number != absent) {
    at = (at + 1) & mask_;
  }
  rows_[at] = std::move(row);
}

}  // namespace tool_binding::detail
