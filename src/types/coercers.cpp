// SPDX-License-Identifier: MIT
#include <cmath>
#include <utility>

#include "types/numerals.hpp"
#include "types/text_values.hpp"
#include "types/type_words.hpp"

namespace tool_binding {

Value _integer(const Value& value) {
  if (value.is_floating()) {
    const double number = value.floating();
    return std::isfinite(number) && std::trunc(number) == number ? Value(Integer::truncated(number)) : Value();
  }
  if (value.is_text()) {
    const auto read = types::read_integer(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _number(const Value& value) {
  if (value.is_integer()) {
    return value.integer().to_double();
  }
  if (value.is_text()) {
    const auto read = types::read_floating(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _boolean(const Value& value) {
  if (const auto number = value.to_int64(); number == 0 || number == 1) {
    return number == 1;
  }
  if (value.is_text()) {
    const auto read = types::read_bool(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _string(const Value& value) {
  return value.is_integer() || value.is_floating() ? Value(plain_form(value)) : Value();
}

Value _array(const Value& value) { return value.is_text() ? types::read_csv(value.text()) : Value(); }

}  // namespace tool_binding
