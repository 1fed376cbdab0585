// SPDX-License-Identifier: MIT
#include "tool_binding/json/reader.hpp"

#include <string>

#include "grammar.hpp"
#include "tokens.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "value_builder.hpp"

namespace tool_binding::json {

namespace {

std::string message_of(std::size_t line, std::size_t byte, std::string_view words) {
  std::string message = "line " + std::to_string(line) + ", byte " + std::to_string(byte) + ": ";
  return message.append(words);
}

}  // namespace

ParseError::ParseError(std::size_t line, std::size_t byte, std::string_view words)
    : ValueError(message_of(line, byte, words)), line_(line), byte_(byte) {}

struct Reader::Parts {
  Tokens tokens;
  std::string unescaped;
  ValueBuilder builder;
};

Reader::Reader() : parts_(std::make_unique<Parts>()) {}
Reader::Reader(Reader&&) noexcept = default;
Reader& Reader::operator=(Reader&&) noexcept = default;
Reader::~Reader() = default;

Value Reader::read(std::string_view text) {
  parts_->builder.clear();
  parts_->tokens.cut(text);
  Grammar(parts_->tokens, parts_->unescaped, parts_->builder).walk();
  return parts_->builder.take();
}

Value read(std::string_view text) { return Reader().read(text); }

}  // namespace tool_binding::json
