// SPDX-License-Identifier: MIT
#pragma once

#include "registry/name_index.hpp"
#include "tool_binding/handler.hpp"

namespace tool_binding::detail {

/// Sets those items of `context` that a handler with these parameters takes: each where the keywords hold its name,
/// else after the others. `place_of(name)` is where they hold it, and no place of theirs when they do not.
template <class PlaceOf>
void add_context(KeywordArguments& keywords, const Parameters& parameters, const KeywordArguments& context,
                 const PlaceOf& place_of) {
  const NameIndex* const named = parameters.named_.get();
  const std::size_t bound = keywords.size();
  for (const auto& [name, item] : context) {
    if (!parameters.take_any_ && (named == nullptr || named->find(name) == NameIndex::absent)) {
      continue;
    }
    if (const std::size_t place = place_of(name); place < bound) {
      keywords.replace_at(place, item);
    } else {
      keywords.append(name, item);
    }
  }
}

}  // namespace tool_binding::detail
