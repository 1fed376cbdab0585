// SPDX-License-Identifier: MIT
#include <algorithm>

#include "handlers/search_actions.hpp"
#include "symbols.hpp"
#include "text.hpp"

namespace repo_daemon {

std::string outline_file(const Keywords& keywords, const Repository& repository) {
  const std::string path = repository.path_of(keywords.required_text("path"));
  const std::vector<std::string> kinds = keywords.texts("kinds");
  const std::string text = repository.text_of(path);
  std::vector<Symbol> symbols = symbols_of(path, text);
  std::erase_if(symbols, [&](const Symbol& symbol) {
    return !kinds.empty() && std::find(kinds.begin(), kinds.end(), symbol.kind) == kinds.end();
  });
  const std::size_t limit = keywords.required_count("limit");
  Report report;
  for (std::size_t place = 0; place < std::min(limit, symbols.size()); ++place) {
    const Symbol& symbol = symbols[place];
    report.add(std::to_string(symbol.line) + ": " + std::string(symbol.kind) + " " + shown(symbol.name));
  }
  return std::move(report).text(counted(symbols.size(), "symbol") +
                                (symbols.size() > limit ? ", the first " + std::to_string(limit) + " shown" : ""));
}

}  // namespace repo_daemon
