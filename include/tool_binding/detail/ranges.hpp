// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <utility>

/// The containers and views of others, as values and maps are made of them.
/// Nothing here is for a daemon's own use.
namespace tool_binding::detail {

template <class Range>
using ItemOf = std::remove_cvref_t<decltype(*std::begin(std::declval<const Range&>()))>;

/// A range of other things than itself that is not a text.
template <class Range>
concept Listed = requires(const Range& range) {
  std::begin(range) != std::end(range);
  requires !std::same_as<ItemOf<Range>, Range>;
  requires !std::convertible_to<const Range&, std::string_view>;
};

/// A range of pairs whose first parts are texts, as maps are.
template <class Range>
concept Named = Listed<Range> && requires(const ItemOf<Range>& entry) {
  requires std::convertible_to<decltype((entry.first)), std::string_view>;
  entry.second;
};

}  // namespace tool_binding::detail
