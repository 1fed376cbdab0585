// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "tool_binding/text.hpp"

namespace tool_binding::detail {

/// From declared names to numbers, filled once and then only read: one probe for most look-ups, none of which
/// allocates. Whoever sends names to look up cannot make a look-up long: how rows stand is settled by the declared
/// names alone.
class NameIndex {
 public:
  static constexpr std::uint32_t absent = 0xFFFFFFFF;

  /// Adds `name`; an earlier entry of the same name stays. Returns whether the name was new.
  bool add(const Text& name, std::uint32_t number);

  /// The number of `name`, or `absent`.
  [[nodiscard]] std::uint32_t find(const Text& name) const noexcept;
  [[nodiscard]] std::uint32_t find(std::string_view name) const noexcept;

 private:
  struct Row {
    Text name;
    std::uint32_t number = absent;
  };

  void grow();
  void place(Row row);

  std::vector<Row> rows_;  ///< a power of two of them, at least half of them free
  std::size_t used_ = 0;
};

}  // namespace tool_binding::detail
