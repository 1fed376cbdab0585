// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace repo_daemon {

/// What a line of a source file declares.
struct Symbol {
  std::size_t line;       ///< counted from 1
  std::string_view kind;  ///< "function", "heading", "namespace" or "type"
  std::string name;
};

/// The symbols of a text, in its order; `path` says which language it is in. Told by the first words of a line, in any
/// language that has such words, and by the shape of a definition that ends in "{": good for finding one's way, not for
/// counting. A symbol whose first line ends before its name is missed.
[[nodiscard]] std::vector<Symbol> symbols_of(std::string_view path, std::string_view text);

}  // namespace repo_daemon
