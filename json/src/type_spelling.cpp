// SPDX-License-Identifier: MIT
#include "type_spelling.hpp"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "tool_binding/registry_check.hpp"

namespace tool_binding::json {

namespace {

struct OtherWord {
  std::string_view spelling;
  std::string_view type;          ///< empty where no type word says it
  std::string_view undeclarable;  ///< what it is then
};

/// Besides the words for a type in other languages: what is sent as text, and what no type word says.
constexpr auto other_words = std::to_array<OtherWord>({
    {"date", "string", ""},         {"datetime", "string", ""},   {"date-time", "string", ""},
    {"time", "string", ""},         {"uri", "string", ""},        {"url", "string", ""},
    {"email", "string", ""},        {"uuid", "string", ""},       {"path", "string", ""},
    {"object", "", "an object"},    {"dict", "", "an object"},    {"dictionary", "", "an object"},
    {"map", "", "an object"},       {"mapping", "", "an object"}, {"hashmap", "", "an object"},
    {"hashtable", "", "an object"}, {"struct", "", "an object"},  {"record", "", "an object"},
    {"json", "", "an object"},      {"any", "", "any value"},     {"mixed", "", "any value"},
    {"null", "", "null alone"},     {"none", "", "null alone"},   {"nonetype", "", "null alone"},
});

std::string lowered(std::string_view text) {
  std::string word(text);
  std::transform(word.begin(), word.end(), word.begin(),
                 [](char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; });
  return word;
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// The parts of `text` between separators that are outside of all brackets.
std::vector<std::string_view> parts_of(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  int depth = 0;
  std::size_t begin = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const std::string_view byte = text.substr(place, 1);
    depth += byte.find_first_of("[<(") == 0 ? 1 : byte.find_first_of("]>)") == 0 ? -1 : 0;
    if (depth == 0 && byte.front() == separator) {
      parts.push_back(trimmed(text.substr(begin, place - begin)));
      begin = place + 1;
    }
  }
  parts.push_back(trimmed(text.substr(begin)));
  return parts;
}

TypeSpelling read_word(std::string_view word) {
  if (const auto type = type_word_of(word)) {
    return {.type = type};
  }
  const auto* const row = std::find_if(other_words.begin(), other_words.end(),
                                       [&](const OtherWord& known) { return known.spelling == word; });
  if (row == other_words.end()) {
    return {.undeclarable = "the type '" + std::string(word) + "'"};
  }
  return row->type.empty() ? TypeSpelling{.undeclarable = std::string(row->undeclarable)}
                           : TypeSpelling{.type = row->type};
}

TypeSpelling read_lowered(std::string_view text, int depth);

/// One of several, of which null has no part.
TypeSpelling read_alternatives(const std::vector<std::string_view>& parts, int depth) {
  std::optional<TypeSpelling> one;
  for (const std::string_view part : parts) {
    TypeSpelling spelling = read_lowered(part, depth);
    if (spelling.undeclarable == "null alone") {
      continue;
    }
    if (one && (!one->type || one->type != spelling.type)) {
      return {.undeclarable = "a union"};
    }
    one = std::move(spelling);
  }
  return one.value_or(TypeSpelling{.undeclarable = "null alone"});
}

/// What follows a word in brackets: "list[str]", "optional[int]".
TypeSpelling read_generic(std::string_view head, std::string_view inner, int depth) {
  const std::vector<std::string_view> parts = parts_of(inner, ',');
  if (head == "optional" || head == "union") {
    return read_alternatives(parts, depth);
  }
  TypeSpelling spelling = read_word(head);
  const bool are_alike = std::all_of(parts.begin(), parts.end(),
                                     [&](std::string_view part) { return part == parts.front() || part == "..."; });
  if (spelling.type == "array" && are_alike) {
    spelling.items = std::string(parts.front());
  }
  return spelling;
}

/// The word of which `word` is the plural, or the word itself.
std::string_view singular(std::string_view word) {
  const bool is_plural = word.ends_with('s') && !type_word_of(word) && type_word_of(word.substr(0, word.size() - 1));
  return is_plural ? word.substr(0, word.size() - 1) : word;
}

TypeSpelling read_lowered(std::string_view text, int depth) {
  constexpr int deepest = 20;
  if (depth == deepest) {
    return {.undeclarable = "a type in so many brackets"};
  }
  if (const auto alternatives = parts_of(text, '|'); alternatives.size() > 1) {
    return read_alternatives(alternatives, depth + 1);
  }
  const std::string_view word = trimmed(parts_of(text, ',').front());  // "str, optional"
  if (word.ends_with("[]")) {
    return {.type = "array", .items = std::string(word.substr(0, word.size() - 2))};
  }
  if (word.ends_with('?')) {
    return read_lowered(word.substr(0, word.size() - 1), depth + 1);
  }
  if (const std::size_t bracket = word.find_first_of("[<("); bracket != std::string_view::npos && bracket != 0) {
    const std::string_view inner = word.substr(bracket + 1, word.find_last_of("]>)") - bracket - 1);
    return read_generic(trimmed(word.substr(0, bracket)), inner, depth + 1);
  }
  for (const std::string_view begin : {"array of ", "list of "}) {
    if (word.starts_with(begin)) {
      return {.type = "array", .items = std::string(singular(word.substr(begin.size())))};
    }
  }
  return read_word(word);
}

}  // namespace

TypeSpelling read_type_spelling(std::string_view spelling) {
  if (const auto type = type_word_of(spelling)) {
    return {.type = type};
  }
  return read_lowered(lowered(trimmed(spelling)), 0);
}

}  // namespace tool_binding::json
