// SPDX-License-Identifier: MIT
#include "symbols.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>

#include "text.hpp"

namespace repo_daemon {

namespace {

struct KindOfWord {
  std::string_view word;
  std::string_view kind;
};

/// Words that a declaration begins with, and what they declare.
constexpr KindOfWord kinds_of_words[] = {
    {"class", "type"},   {"struct", "type"}, {"enum", "type"},     {"union", "type"},       {"interface", "type"},
    {"trait", "type"},   {"record", "type"}, {"concept", "type"},  {"module", "namespace"}, {"namespace", "namespace"},
    {"def", "function"}, {"fn", "function"}, {"func", "function"}, {"function", "function"}};

/// Words that may stand before those.
constexpr std::array<std::string_view, 13> modifiers = {"abstract", "async",  "default",  "export",    "final",
                                                        "inline",   "local",  "private",  "protected", "pub",
                                                        "public",   "static", "constexpr"};

/// Words that stand before "(" and "{" and declare nothing.
constexpr std::array<std::string_view, 7> statements = {"catch", "else", "for", "if", "return", "switch", "while"};

template <class Words>
bool holds(const Words& words, std::string_view word) {
  return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

bool is_part_of_name(char byte) {
  const auto number = static_cast<unsigned char>(byte);
  return std::isalnum(number) != 0 || byte == '_' || byte == ':' || byte == '~' || number >= 0x80;
}

std::string_view without_indent(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return line;
}

/// Takes the next word off the line, nothing where no word begins.
std::string_view take_word(std::string_view& line) {
  line = without_indent(line);
  const auto* const end = std::find_if_not(line.begin(), line.end(), is_part_of_name);
  const std::string_view word = line.substr(0, static_cast<std::size_t>(end - line.begin()));
  line.remove_prefix(word.size());
  return word;
}

std::string_view kind_of(std::string_view word) {
  const auto* const found = std::find_if(std::begin(kinds_of_words), std::end(kinds_of_words),
                                         [&](const KindOfWord& row) { return row.word == word; });
  return found == std::end(kinds_of_words) ? "" : found->kind;
}

/// "class Name", "export async function name", "enum class Name"; no "class Name;", which declares it elsewhere.
std::optional<Symbol> declared_by_word(std::string_view line, std::size_t number) {
  if (line.ends_with(';')) {
    return std::nullopt;
  }
  std::string_view word = take_word(line);
  while (holds(modifiers, word)) {
    word = take_word(line);
  }
  const std::string_view kind = kind_of(word);
  if (kind.empty()) {
    return std::nullopt;
  }
  std::string_view name = take_word(line);
  if (word == "enum" && (name == "class" || name == "struct")) {
    name = take_word(line);
  }
  while (name.ends_with(':')) {
    name.remove_suffix(1);
  }
  return name.empty() ? std::nullopt : std::optional(Symbol{number, kind, name});
}

/// "int name(...) {", with what stands before the name.
std::optional<Symbol> declared_by_shape(std::string_view line, std::size_t number) {
  const std::size_t parenthesis = line.find('(');
  if (parenthesis == std::string_view::npos || !line.ends_with('{') || line.starts_with('}')) {
    return std::nullopt;
  }
  const std::string_view before = line.substr(0, parenthesis);
  std::size_t begin = before.size();
  while (begin > 0 && is_part_of_name(before[begin - 1])) {
    --begin;
  }
  const std::string_view name = before.substr(begin);
  std::string_view rest = before;
  if (name.empty() || before.find('=') != std::string_view::npos || holds(statements, take_word(rest)) ||
      holds(statements, name)) {
    return std::nullopt;
  }
  return Symbol{number, "function", name};
}

/// "## Words" of a document.
std::optional<Symbol> heading(std::string_view line, std::size_t number) {
  const std::size_t level = std::min(line.find_first_not_of('#'), line.size());
  if (level == 0 || level > 6 || level == line.size() || line[level] != ' ') {
    return std::nullopt;
  }
  return Symbol{number, "heading", without_indent(line.substr(level))};
}

std::optional<Symbol> declared_by(std::string_view line, std::size_t number) {
  std::optional<Symbol> symbol = declared_by_word(line, number);
  return symbol ? symbol : declared_by_shape(line, number);
}

}  // namespace

void each_symbol(std::string_view path, std::string_view text, const std::function<void(const Symbol&)>& use) {
  const bool is_document = path.ends_with(".md");
  Lines lines(text);
  for (std::size_t number = 1; const std::optional<std::string_view> line = lines.next(); ++number) {
    const std::optional<Symbol> symbol =
        is_document ? heading(*line, number) : declared_by(without_indent(*line), number);
    if (symbol) {
      use(*symbol);
    }
  }
}

}  // namespace repo_daemon
