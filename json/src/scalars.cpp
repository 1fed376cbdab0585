// SPDX-License-Identifier: MIT
#include "scalars.hpp"

#include <limits>
#include <optional>
#include <utility>

namespace tool_binding::json {

namespace {

std::optional<Value> value_of_word(std::string_view word) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  if (word == "true" || word == "false") {
    return word == "true";
  }
  if (word == "null") {
    return Value();
  }
  if (word == "NaN") {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (word == "Infinity" || word == "-Infinity") {
    return word == "Infinity" ? infinity : -infinity;
  }
  return std::nullopt;
}

bool separates(char byte) noexcept { return byte == ',' || byte == ':' || byte == ']' || byte == '}'; }

}  // namespace

Value read_word_or_negative(const Tokens& tokens, std::size_t token) {
  if (std::optional<Value> value = value_of_word(tokens.whole(token))) {
    return *std::move(value);
  }
  const char first = tokens.first_of(token);
  if (first == '-') {
    return read_number(tokens, token);
  }
  tokens.fail(tokens.begin_of(token), separates(first) ? "a value is missing" : "this is not a valid value");
}

}  // namespace tool_binding::json
