// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "tool_binding/value.hpp"

namespace tool_binding {

/// The list of what `change` makes of each item of `list`, null standing for the item as it is. Null when every item
/// stays, so that a list which needs no change is handed on and not built again.
template <class Change>
[[nodiscard]] Value changed_items(const Value& list, const Change& change) {
  const std::span<const Value> items = list.list();
  std::vector<Value> changed;
  for (std::size_t place = 0; place < items.size(); ++place) {
    Value item = change(items[place]);
    if (item.is_null() && changed.empty()) {
      continue;
    }
    if (changed.empty()) {
      changed.reserve(items.size());
      changed.assign(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(place));
    }
    if (item.is_null()) {
      changed.push_back(items[place]);
    } else {
      changed.push_back(std::move(item));
    }
  }
  return changed.empty() ? Value() : Value(std::move(changed));
}

}  // namespace tool_binding
