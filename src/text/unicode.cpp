// SPDX-License-Identifier: MIT
#include "text/unicode.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "text/unicode_tables.hpp"

namespace tool_binding::text {
namespace {

constexpr char32_t white_space_beyond_ascii[][2] = {
    {0x85, 0x85},     {0xA0, 0xA0},     {0x1680, 0x1680}, {0x2000, 0x200A},
    {0x2028, 0x2029}, {0x202F, 0x202F}, {0x205F, 0x205F}, {0x3000, 0x3000},
};

/// The last row that begins at or before `code_point`, null when every row begins after it.
template <class Row, std::size_t size, class First>
const Row* row_at(const Row (&rows)[size], char32_t code_point, First first) noexcept {
  const Row* const after = std::upper_bound(std::begin(rows), std::end(rows), code_point,
                                            [&](char32_t wanted, const Row& row) { return wanted < first(row); });
  return after == std::begin(rows) ? nullptr : after - 1;
}

constexpr auto first_of = [](const auto& row) noexcept { return row.first; };

template <std::size_t size>
bool holds(const CodePointRange (&ranges)[size], char32_t code_point) noexcept {
  const CodePointRange* const range = row_at(ranges, code_point, first_of);
  return range != nullptr && code_point <= range->last;
}

}  // namespace

bool is_white_space_beyond_ascii(char32_t code_point) noexcept {
  return std::any_of(std::begin(white_space_beyond_ascii), std::end(white_space_beyond_ascii),
                     [&](const auto& range) { return code_point >= range[0] && code_point <= range[1]; });
}

int decimal_digit_beyond_ascii(char32_t code_point) noexcept {
  const char32_t* const zero = row_at(tables::digit_zeros, code_point, [](char32_t row) noexcept { return row; });
  return zero != nullptr && code_point - *zero < 10 ? static_cast<int>(code_point - *zero) : -1;
}

bool is_printable_beyond_ascii(char32_t code_point) noexcept {
  return code_point <= 0x10FFFF && !holds(tables::not_printable, code_point);
}

bool is_cased(char32_t code_point) noexcept { return holds(tables::cased, code_point); }

bool is_case_ignorable(char32_t code_point) noexcept { return holds(tables::case_ignorable, code_point); }

std::array<char32_t, 2> lower_mapping(char32_t code_point) noexcept {
  const LowerPair* const pair = row_at(tables::lower_pairs, code_point, first_of);
  if (pair != nullptr && pair->first == code_point) {
    return {pair->lower[0], pair->lower[1]};
  }
  const LowerRange* const range = row_at(tables::lower_ranges, code_point, first_of);
  if (range == nullptr || code_point > range->last || (code_point - range->first) % range->stride != 0) {
    return {code_point, 0};
  }
  return {code_point + static_cast<char32_t>(range->offset), 0};
}

}  // namespace tool_binding::text
