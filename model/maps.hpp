// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

#include "tool_binding/ordered_map.hpp"

/// Ordered maps, searched from the front whatever their size.
namespace tool_binding::model {

/// The value under `name`, null when there is none.
template <class Mapped>
[[nodiscard]] const Mapped* under(const OrderedMap<Mapped>& map, std::string_view name) {
  for (const auto& entry : map) {
    if (entry.name == name) {
      return &entry.value;
    }
  }
  return nullptr;
}

/// Sets `name` to `value`: where the map holds the name, else as the last entry.
template <class Mapped>
void set(OrderedMap<Mapped>& map, const Text& name, const Mapped& value) {
  for (std::size_t index = 0; index < map.size(); ++index) {
    if (map[index].name == name) {
      map.replace_at(index, value);
      return;
    }
  }
  map.append(name, value);
}

}  // namespace tool_binding::model
