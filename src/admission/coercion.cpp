// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <utility>

#include "admission/normalizing.hpp"
#include "text/numerals.hpp"
#include "text/text_values.hpp"
#include "values/forms.hpp"

namespace tool_binding {

namespace {

using detail::TypeWord;

// A coercer gives null for a value that it cannot read, whether by its kind or by its content: a refused value is part
// of a request's ordinary answer, and costs no exception.

Value _integer(const Value& value) {
  if (value.is_integer()) {
    return value;
  }
  if (value.is_floating()) {
    const double number = value.floating();
    return std::isfinite(number) && std::trunc(number) == number ? Value(Integer::truncated(number)) : Value();
  }
  if (value.is_text()) {
    const auto read = text::read_integer(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _number(const Value& value) {
  if (value.is_floating()) {
    return value;
  }
  if (value.is_integer()) {
    return value.integer().to_double();
  }
  if (value.is_text()) {
    const auto read = text::read_floating(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _boolean(const Value& value) {
  if (value.is_boolean()) {
    return value;
  }
  if (value.is_integer() && (value.integer() == 0 || value.integer() == 1)) {
    return value.integer() == 1;
  }
  if (value.is_text()) {
    const auto read = text::read_bool(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _string(const Value& value) {
  if (value.is_text()) {
    return value;
  }
  return value.is_integer() || value.is_floating() ? Value(plain_form(value)) : Value();
}

Value _array(const Value& value) {
  if (value.is_list()) {
    return value;
  }
  if (value.is_text()) {
    auto items = text::read_csv(value.text());
    return items ? Value(*std::move(items)) : Value();
  }
  return {};
}

struct Coercion {
  TypeWord type;
  Value (*coerce)(const Value&);
};

constexpr std::array<Coercion, 5> COERCIONS = {{{TypeWord::integer, _integer},
                                                {TypeWord::number, _number},
                                                {TypeWord::boolean, _boolean},
                                                {TypeWord::string, _string},
                                                {TypeWord::array, _array}}};

struct TypeWords {
  TypeWord type;
  std::string_view words;
};

constexpr std::array<TypeWords, 5> TYPE_WORDS = {{{TypeWord::integer, "a whole number"},
                                                  {TypeWord::number, "a number"},
                                                  {TypeWord::boolean, "true or false"},
                                                  {TypeWord::string, "text"},
                                                  {TypeWord::array, "a list (or comma-separated text)"}}};

/// The row of a parameter's type. A type word that has none is a fault of the registry, not of the request.
template <class Rows>
const auto& row_of(const Rows& rows, const detail::PreparedParam& param) {
  for (const auto& row : rows) {
    if (row.type == param.type) {
      return row;
    }
  }
  throw KeyError("no type is named '" + std::string(param.spec->type) + "', which parameter '" +
                 std::string(param.spec->name) + "' is declared with");
}

/// The list of what `change` makes of each item; the list itself when nothing comes out changed.
template <class Change>
Value with_each_item(const Value& list, const Change& change) {
  const std::span<const Value> items = list.list();
  std::vector<Value> changed;
  for (std::size_t place = 0; place < items.size(); ++place) {
    Value item = change(items[place]);
    if (changed.empty() && item.is_text() && items[place].is_text() && item.text() == items[place].text()) {
      continue;
    }
    if (changed.empty()) {
      changed.reserve(items.size());
      changed.assign(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(place));
    }
    changed.push_back(std::move(item));
  }
  return changed.empty() ? list : Value(std::move(changed));
}

}  // namespace

Value Normalizing::_coerced(const Param& param, const Value& value) {
  Value coerced = row_of(COERCIONS, param).coerce(value);
  if (coerced.is_null()) {
    std::string problem("Parameter '");
    problem.append(param.spec->name).append("' of ").append(spec.name()).append(" must be ");
    problem.append(row_of(TYPE_WORDS, param).words).append(", not ");
    append_quoted_form(problem, value);
    problems.push_back(std::move(problem));
    return {};
  }
  if (param.items_are_texts) {
    coerced = with_each_item(coerced, [](const Value& item) { return Value(plain_form(item)); });
  }
  if (param.spec->enum_.empty()) {
    return _bounded(param, std::move(coerced));
  }
  return param.type == TypeWord::array ? _enum_values(param, coerced) : _enum_value(param, plain_form(coerced));
}

Value Normalizing::_enum_values(const Param& param, const Value& list) {
  const std::size_t problems_before = problems.size();
  Value declared = with_each_item(list, [&](const Value& item) { return _enum_value(param, plain_form(item)); });
  return problems.size() == problems_before ? declared : Value();
}

}  // namespace tool_binding
