// SPDX-License-Identifier: MIT
#include "refusal.hpp"

#include <exception>
#include <string>

#include "members.hpp"
#include "tool_binding/detail/assert.hpp"
#include "tool_binding/json/parse_error.hpp"

namespace tool_binding::cli {

namespace {

std::string place(std::size_t line_number) { return "line " + std::to_string(line_number) + ": "; }

/// The text was read as one line, so that the fault's own line says nothing: the input's line takes its place.
std::string placed_message(std::size_t line_number, const json::ParseError& fault) {
  const std::string_view message = fault.message();
  const std::string_view words = message.substr(message.find(": ") + 2);
  return place(line_number).append("byte ").append(std::to_string(fault.byte())).append(": ").append(words);
}

template <class Kind>
bool is(const Error& error) {
  return dynamic_cast<const Kind*>(&error) != nullptr;
}

}  // namespace

Refusal refusal_of(const Error& error, std::size_t line_number) {
  TOOL_BINDING_ASSERT(std::current_exception() != nullptr);
  if (is<ArgumentError>(error)) {
    return {"ArgumentError", error.message()};
  }
  if (const auto* const fault = dynamic_cast<const json::ParseError*>(&error)) {
    return {"ValueError", placed_message(line_number, *fault), Refusal::Code::parse_error};
  }
  if (is<InvalidRequest>(error)) {
    return {"ValueError", place(line_number).append(error.message()), Refusal::Code::invalid_request};
  }
  if (is<KeyError>(error)) {
    return {"KeyError", error.message()};
  }
  if (is<LookupError>(error)) {
    return {"LookupError", error.message()};
  }
  throw;
}

Refusal refusal_of(const std::overflow_error& error) { return {"OverflowError", std::string_view(error.what())}; }

}  // namespace tool_binding::cli
