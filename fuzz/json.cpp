// SPDX-License-Identifier: MIT
#include <algorithm>

#include "choices.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"
#include "values.hpp"

/// JSON text, or a value written as such. What is accepted is written and read again without a change.
namespace tool_binding::fuzz {
namespace {

/// Whether the halves of a surrogate pair stand side by side, each by itself. JSON has no spelling for that but the one
/// of the code point that they make together.
bool joins_halves(std::string_view text) {
  for (std::size_t place = text.find("\\ud"); place < text.size(); place = text.find("\\ud", place + 1)) {
    const std::string_view first = text.substr(place + 3, 1);
    const std::string_view second = text.substr(std::min(place + 6, text.size()), 4);
    if (first < "c" && second.starts_with("\\ud") && second.substr(3) >= "c") {
      return true;
    }
  }
  return false;
}

void check_written(const Value& value) {
  const std::string text = json::write(value);
  if (joins_halves(text)) {
    return;
  }
  require(quoted_form(json::read(text)) == quoted_form(value), "a value is read as it was written", text);
  require(json::write(json::read(text)) == text, "and written as it was read", text);
  require(text.find('\n') == std::string::npos, "a value is written on one line", text);
}

void check_place(const json::ParseError& error, std::string_view text) {
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  require(error.line() >= 1 && error.line() <= lines, "a fault stands in a line of the text", text);
  require(error.byte() >= 1 && error.byte() <= text.size() + 1, "at a byte of it", text);
}

void check_text(std::string_view text) {
  static json::Reader reader;  // one for all inputs, good and bad: none leaves a trace in it
  std::string refusal;
  Value value;
  try {
    value = reader.read(text);
  } catch (const json::ParseError& error) {
    check_place(error, text);
    refusal = error.message();
  }
  try {
    require(quoted_form(json::read(text)) == quoted_form(value) && refusal.empty(), "a used reader reads alike", text);
    check_written(value);
  } catch (const json::ParseError& error) {
    require(error.message() == refusal, "a used reader refuses alike", text);
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tool_binding::fuzz;
  Choices choices(data, size);
  if (choices.byte() == 'v') {
    check_written(make_value(choices, 5));
  } else {
    check_text(choices.all_bytes());
  }
  return 0;
}
