// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "values/text_builder.hpp"

namespace tool_binding {

/// Appends the texts of `range` to `out`, with `between` between them.
template <class Range>
void append_joined(TextBuilder& out, const Range& range, std::string_view between) {
  bool first = true;
  for (const std::string_view text : range) {
    if (!first) {
      out.append(between);
    }
    out.append(text);
    first = false;
  }
}

}  // namespace tool_binding
