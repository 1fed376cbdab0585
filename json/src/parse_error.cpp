// SPDX-License-Identifier: MIT
#include "tool_binding/json/parse_error.hpp"

#include <string>

namespace tool_binding::json {

namespace {

std::string message_of(std::size_t line, std::size_t byte, std::string_view words) {
  std::string message = "line " + std::to_string(line) + ", byte " + std::to_string(byte) + ": ";
  return message.append(words);
}

}  // namespace

ParseError::ParseError(std::size_t line, std::size_t byte, std::string_view words)
    : ValueError(message_of(line, byte, words)), line_(line), byte_(byte) {}

}  // namespace tool_binding::json
