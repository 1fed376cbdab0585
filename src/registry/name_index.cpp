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
  reserve(1);
  insert({name, number});
  ++used_;
  return true;
}

std::uint32_t NameIndex::find(std::string_view name) const noexcept {
  if (name.size() <= inline_text_size) {
    return find(Text(name));
  }
  for (std::size_t at = row_of(name);; at = row_after(at)) {
    if (rows_[at].number == absent || rows_[at].name == name) {
      return rows_[at].number;
    }
  }
}

void NameIndex::reserve(std::size_t more) {
  if (const std::size_t wanted = 2 * (used_ + more); wanted > rows_.size()) {
    grow_to(std::bit_ceil(std::max(smallest_table, wanted)));
  }
}

void NameIndex::grow_to(std::size_t size) {
  std::vector<Row> before(size);
  before.swap(rows_);
  shift_ = 64 - std::countr_zero(rows_.size());
  for (Row& row : before) {
    if (row.number != absent) {
      insert(std::move(row));
    }
  }
}

void NameIndex::insert(Row row) {
  std::size_t at = row_of(cell_of(row.name));
  while (rows_[at].number != absent) {
    at = row_after(at);
  }
  rows_[at] = std::move(row);
}

}  // namespace tool_binding::detail
