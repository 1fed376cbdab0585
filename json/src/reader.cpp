// SPDX-License-Identifier: MIT
#include "tool_binding/json/reader.hpp"

#include <string>

#include "grammar.hpp"
#include "tokens.hpp"
#include "value_builder.hpp"

namespace tool_binding::json {

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
