// SPDX-License-Identifier: MIT
#include "types/numerals.hpp"

#include <cmath>
#include <cstdlib>
#include <stdexcept>

#include "choices.hpp"
#include "text/code_points.hpp"
#include "text/unicode.hpp"
#include "tool_binding/value.hpp"

/// Texts that are numerals, or nearly. The C library reads numbers as correctly as the layer must.
namespace tool_binding::fuzz {
namespace {

constexpr std::string_view pieces[] = {"0", "1",      "9",   "\u0665",   "_",   ".",   "e",   "E",          "+", "-",
                                       " ", "\u3000", "inf", "INFINITY", "nan", "e-3", "e30", "0000000000", "x"};

std::string make_numeral(Choices& choices) {
  if (choices.flag()) {
    return std::string(choices.all_bytes());
  }
  std::string numeral;
  while (!choices.empty()) {
    numeral += choices.one_of(pieces);
  }
  return numeral;
}

/// The numeral in ASCII without white space around it and without "_" between digits; every other "_" stays.
std::string in_ascii(std::string_view numeral) {
  std::u32string code_points = text::decode(numeral);
  while (!code_points.empty() && text::is_white_space(code_points.back())) {
    code_points.pop_back();
  }
  while (!code_points.empty() && text::is_white_space(code_points.front())) {
    code_points.erase(0, 1);
  }
  const auto is_digit = [&](std::size_t place) {
    return place < code_points.size() && text::decimal_digit(code_points[place]) >= 0;
  };
  std::string ascii;
  for (std::size_t place = 0; place < code_points.size(); ++place) {
    const char32_t character = code_points[place];
    if (is_digit(place)) {
      ascii += static_cast<char>('0' + text::decimal_digit(character));
    } else if (character != U'_' || place == 0 || !is_digit(place - 1) || !is_digit(place + 1)) {
      ascii += character < 0x80 && character != 0 ? static_cast<char>(character) : '?';
    }
  }
  return ascii;
}

bool is_integer(std::string_view ascii) {
  ascii.remove_prefix(ascii.starts_with('+') || ascii.starts_with('-') ? 1 : 0);
  return !ascii.empty() && ascii.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<double> floating_of(const std::string& ascii) {
  std::string word = ascii.substr(ascii.find_first_not_of("+-") == 1 ? 1 : 0);
  for (char& letter : word) {
    letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
  }
  const bool is_word = word == "inf" || word == "infinity" || word == "nan";
  if (ascii.empty() || (!is_word && ascii.find_first_not_of("0123456789+-.eE") != std::string::npos)) {
    return std::nullopt;
  }
  char* end = nullptr;
  const double value = std::strtod(ascii.c_str(), &end);
  return end == ascii.c_str() + ascii.size() ? std::optional(value) : std::nullopt;
}

bool same_double(double left, double right) {
  return (std::isnan(left) && std::isnan(right)) || (left == right && std::signbit(left) == std::signbit(right));
}

void check_integer(const std::string& numeral, const std::string& ascii) {
  const std::optional<Integer> read = types::read_integer(numeral);
  require(read.has_value() == is_integer(ascii), "a sign and digits are an integer, and nothing else is", numeral);
  if (!read) {
    return;
  }
  require(*read == Integer::from_decimal(ascii.substr(ascii.front() == '+' ? 1 : 0)), "its digits are kept", numeral);
  require(types::read_integer(read->to_string()) == read, "an integer is read as it is written", numeral);
  const std::optional<double> floating = types::read_floating(numeral);
  require(floating.has_value(), "an integer is a floating number too", numeral);
  try {
    require(read->to_double() == *floating, "both readers agree", numeral);
  } catch (const std::overflow_error&) {
    require(std::isinf(*floating), "both readers agree on what is too large", numeral);
  }
  require(std::isnan(*floating) || (*read <=> 0) == 0 || read->compare(0.0) == (*read <=> 0),
          "an integer has one sign");
}

void check_floating(const std::string& numeral, const std::string& ascii) {
  const std::optional<double> read = types::read_floating(numeral);
  const std::optional<double> expected = floating_of(ascii);
  require(read.has_value() == expected.has_value(), "a floating number has one grammar", numeral);
  if (read) {
    require(same_double(*read, *expected), "a floating number is rounded correctly", numeral);
    const auto again = types::read_floating(plain_form(*read));
    require(again && same_double(*again, *read), "a floating number is read as it is written", numeral);
  }
}

void check(Choices choices) {
  const std::string numeral = make_numeral(choices);
  const std::string ascii = in_ascii(numeral);
  check_integer(numeral, ascii);
  check_floating(numeral, ascii);
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
