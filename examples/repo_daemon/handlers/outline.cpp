// SPDX-License-Identifier: MIT
#include <algorithm>

#include "handlers/search_actions.hpp"
#include "symbols.hpp"
#include "text.hpp"

namespace repo_daemon {

std::string outline_file(const Keywords& keywords, const Repository& repository) {
  const std::string path = repository.path_of(keywords.required_text("path"));
  const std::vector<std::string> kinds = keywords.texts("kinds");
  const std::string text = repository.text_of(path, keywords.deadline(repository.limits()));
  const std::size_t limit = keywords.required_count("limit");
  std::size_t found = 0;
  Report report;
  each_symbol(path, text, [&](const Symbol& symbol) {
    const bool is_asked_for = kinds.empty() || std::find(kinds.begin(), kinds.end(), symbol.kind) != kinds.end();
    if (is_asked_for && ++found <= limit) {
      report.add(std::to_string(symbol.line) + ": " + std::string(symbol.kind) + " " + shown_line(symbol.name));
    }
  });
  return std::move(report).text(counted(found, "symbol") +
                                (found > limit ? ", the first " + std::to_string(limit) + " shown" : ""));
}

}  // namespace repo_daemon
