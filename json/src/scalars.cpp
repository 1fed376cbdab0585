// SPDX-License-Identifier: MIT
#include "scalars.hpp"

#include <array>
#include <limits>

namespace tool_binding::json {

namespace {

struct Word {
  std::string_view spelling;
  Value value;
};

const Word* find_word(std::string_view spelling) {
  static const std::array<Word, 6> words{{{"true", true},
                                          {"false", false},
                                          {"null", nullptr},
                                          {"NaN", std::numeric_limits<double>::quiet_NaN()},
                                          {"Infinity", std::numeric_limits<double>::infinity()},
                                          {"-Infinity", -std::numeric_limits<double>::infinity()}}};
  for (const Word& word : words) {
    if (word.spelling.front() == spelling.front() && word.spelling == spelling) {
      return &word;
    }
  }
  return nullptr;
}

bool separates(char byte) noexcept { return byte == ',' || byte == ':' || byte == ']' || byte == '}'; }

}  // namespace

Value read_number_or_word(const Tokens& tokens, std::size_t token) {
  const char first = tokens.first_of(token);
  if (first >= '0' && first <= '9') {
    return read_number(tokens, token);
  }
  if (const Word* const word = find_word(tokens.whole(token)); word != nullptr) {
    return word->value;
  }
  if (first == '-') {
    return read_number(tokens, token);
  }
  tokens.fail(tokens.begin_of(token), separates(first) ? "a value is missing" : "this is not a valid value");
}

}  // namespace tool_binding::json
