// SPDX-License-Identifier: MIT
#include "refusal.hpp"

#include <stdexcept>
#include <string>

#include "members.hpp"
#include "tool_binding/errors.hpp"
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

}  // namespace

Refusal current_refusal(std::size_t line_number) {
  try {
    throw;
  } catch (const json::ParseError& error) {
    return {"ValueError", placed_message(line_number, error), Refusal::Code::parse_error};
  } catch (const NoRequest& error) {
    return {"ValueError", place(line_number).append(error.message()), Refusal::Code::invalid_request};
  } catch (const ArgumentError& error) {
    return {"ArgumentError", error.message()};
  } catch (const KeyError& error) {
    return {"KeyError", error.message()};
  } catch (const LookupError& error) {
    return {"LookupError", error.message()};
  } catch (const std::overflow_error& error) {
    return {"OverflowError", std::string_view(error.what())};
  }
}

}  // namespace tool_binding::cli
