// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace repo_daemon {

/// What a line of a source file declares.
struct Symbol {
  std::size_t line;       ///< counted from 1
  std::string_view kind;  ///< "function", "heading", "namespace" or "type"
  std::string_view name;
};

/// Shows the symbols of a text to `use`, in its order; `path` says which language it is in. Told by the first words of
/// a line, in any language that has such words, and by the shape of a definition that ends in "{": good for finding
/// one's way, not for counting. A symbol whose first line ends before its name is missed.
void each_symbol(std::string_view path, std::string_view text, const std::function<void(const Symbol&)>& use);

}  // namespace repo_daemon
