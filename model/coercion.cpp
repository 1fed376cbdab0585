// SPDX-License-Identifier: MIT
#include "model/coercion.hpp"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "text/code_points.hpp"
#include "text/lower_case.hpp"
#include "text/unicode.hpp"
#include "text/white_space.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/utils/text_values.hpp"

namespace tool_binding::model {

namespace {

/// What is left to read of a numeral, and what was read of it: the same in ASCII, without "_".
struct Numeral {
  std::u32string_view rest;
  std::string read = {};

  bool take_any_of(std::u32string_view characters) {
    if (rest.empty() || characters.find(rest.front()) == std::u32string_view::npos) {
      return false;
    }
    read += static_cast<char>(rest.front());
    rest.remove_prefix(1);
    return true;
  }

  /// Digits of any script, with one "_" between two of them at most. Whether there are any.
  bool take_digits() {
    const auto digit_at = [this](std::size_t position) {
      return position < rest.size() ? text::decimal_digit(rest[position]) : -1;
    };
    if (digit_at(0) < 0) {
      return false;
    }
    while (digit_at(0) >= 0) {
      read += static_cast<char>('0' + digit_at(0));
      rest.remove_prefix(rest.size() > 1 && rest[1] == U'_' && digit_at(2) >= 0 ? 2 : 1);
    }
    return true;
  }
};

/// Whatever locale the program is in.
double read_double(const std::string& numeral) {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(numeral.c_str(), nullptr, plain);
}

std::optional<Value> read_integer(std::string_view given) {
  const std::u32string decoded = text::decode(text::strip(given));
  Numeral numeral{decoded};
  numeral.take_any_of(U"+-");
  if (!numeral.take_digits() || !numeral.rest.empty()) {
    return std::nullopt;
  }
  return Integer::from_decimal(numeral.read.front() == '+' ? numeral.read.substr(1) : numeral.read);
}

std::optional<Value> read_floating(std::string_view given) {
  const std::string_view stripped = text::strip(given);
  const std::size_t sign = stripped.starts_with('+') || stripped.starts_with('-') ? 1 : 0;
  const Text word = text::lower_case(stripped.substr(sign));
  if (word == "inf" || word == "infinity" || word == "nan") {
    return read_double(std::string(stripped));
  }
  const std::u32string decoded = text::decode(stripped);
  Numeral numeral{decoded};
  numeral.take_any_of(U"+-");
  const bool has_whole = numeral.take_digits();
  const bool has_fraction = numeral.take_any_of(U".") && numeral.take_digits();
  bool is_whole_numeral = has_whole || has_fraction;
  if (is_whole_numeral && numeral.take_any_of(U"eE")) {
    numeral.take_any_of(U"+-");
    is_whole_numeral = numeral.take_digits();
  }
  if (!is_whole_numeral || !numeral.rest.empty()) {
    return std::nullopt;
  }
  return read_double(numeral.read);
}

template <class Reader>
std::optional<Value> unless_refused(const Reader& read) {
  try {
    return read();
  } catch (const ValueError&) {
    return std::nullopt;
  }
}

std::optional<Value> integer(const Value& value) {
  if (value.is_floating()) {
    if (!std::isfinite(value.floating()) || std::floor(value.floating()) != value.floating()) {
      return std::nullopt;
    }
    return Integer::truncated(value.floating());
  }
  if (value.is_text()) {
    return read_integer(value.text());
  }
  if (value.is_integer()) {
    return value;
  }
  return std::nullopt;
}

std::optional<Value> number(const Value& value) {
  if (value.is_integer()) {
    return to_double(value.integer());
  }
  if (value.is_floating()) {
    return value;
  }
  if (value.is_text()) {
    return read_floating(value.text());
  }
  return std::nullopt;
}

std::optional<Value> boolean(const Value& value) {
  if (value.is_boolean()) {
    return value;
  }
  if (value == Value(0) || value == Value(1)) {
    return value == Value(1);
  }
  if (value.is_text()) {
    return unless_refused([&] { return parse_bool(value.text()); });
  }
  return std::nullopt;
}

std::optional<Value> string(const Value& value) {
  if (value.is_text()) {
    return value;
  }
  if (value.is_integer() || value.is_floating()) {
    return plain_form(value);
  }
  return std::nullopt;
}

std::optional<Value> array(const Value& value) {
  if (value.is_list()) {
    return value;
  }
  if (value.is_text()) {
    return unless_refused([&] { return split_csv(value.text()); });
  }
  return std::nullopt;
}

constexpr Type types[] = {{"integer", "a whole number", integer},
                          {"number", "a number", number},
                          {"boolean", "true or false", boolean},
                          {"string", "text", string},
                          {"array", "a list (or comma-separated text)", array}};

}  // namespace

const Type& type_named(std::string_view word) {
  for (const Type& type : types) {
    if (type.word == word) {
      return type;
    }
  }
  throw KeyError("no type is named '" + std::string(word) + "'");
}

double to_double(const Integer& integer) {
  const double nearest = read_double(integer.to_string());
  if (std::isinf(nearest)) {
    throw std::overflow_error("the integer is beyond the largest double");
  }
  return nearest;
}

}  // namespace tool_binding::model
