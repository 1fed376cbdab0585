// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>

#include "tool_binding/detail/export.hpp"

/// What the layer knows of types that are the daemon's own, without run-time type information.
/// Nothing here is for a daemon's own use.
namespace tool_binding::detail {

/// The text that the compiler writes for this function ends in "Type = ", the type and "]".
template <class Type>
[[nodiscard]] constexpr auto spelled_function() noexcept {
  return std::string_view(__PRETTY_FUNCTION__);
}

/// A type's name as the compiler spells it, for messages only.
template <class Type>
[[nodiscard]] constexpr std::string_view type_name() noexcept {
  constexpr std::string_view spelled = spelled_function<Type>();
  constexpr std::string_view before = "Type = ";
  constexpr std::size_t begin = spelled.find(before) + before.size();
  return spelled.substr(begin, spelled.size() - begin - 1);
}

/// One object for each type of context item: its address tells types apart.
struct ItemType {
  std::string_view name;
};

template <class Item>
TOOL_BINDING_API inline constexpr ItemType item_type = {type_name<Item>()};

/// One of the types as which an item is handed out, and the way there; null for an address that stays the same.
struct ItemView {
  const ItemType* type;
  void* (*address)(void* item);
};

template <class Item, class Base>
[[nodiscard]] void* address_of_base(void* item) noexcept {
  Base* const base = static_cast<Item*>(item);
  return const_cast<std::remove_cv_t<Base>*>(base);
}

/// As what an item that is offered as `Item` is handed out: itself first, its bases, and each of them as a constant.
template <class Item, class... Bases>
struct ItemViews {
  template <class Base>
  using Qualified = std::conditional_t<std::is_const_v<Item>, const Base, Base>;

  static_assert((std::derived_from<Item, Bases> && ...), "an item is offered with public base classes of its own");

  static constexpr std::array<ItemView, 2 + 2 * sizeof...(Bases)> rows = {{
      {&item_type<Item>, nullptr},
      {&item_type<const Item>, nullptr},
      {&item_type<Qualified<Bases>>, address_of_base<Item, Qualified<Bases>>}...,
      {&item_type<const Bases>, address_of_base<Item, const Bases>}...,
  }};
};

}  // namespace tool_binding::detail
