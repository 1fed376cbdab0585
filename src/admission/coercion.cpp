// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "admission/changed_items.hpp"
#include "admission/normalizing.hpp"
#include "text/numerals.hpp"
#include "text/text_values.hpp"
#include "values/forms.hpp"

namespace tool_binding {

namespace {

using detail::TypeWord;

// A coercer is given a value that is not of its type yet. It gives null for one that it cannot read, whether by its
// kind or by its content: a refused value is part of a request's ordinary answer, and costs no exception.

Value _integer(const Value& value) {
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
  if (const auto number = value.to_int64(); number == 0 || number == 1) {
    return number == 1;
  }
  if (value.is_text()) {
    const auto read = text::read_bool(value.text());
    return read ? Value(*read) : Value();
  }
  return {};
}

Value _string(const Value& value) {
  return value.is_integer() || value.is_floating() ? Value(plain_form(value)) : Value();
}

Value _array(const Value& value) {
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
const auto& row_of(const Rows& rows, const ToolSpec& spec, const detail::PreparedParam& param) {
  for (const auto& row : rows) {
    if (row.type == param.type) {
      return row;
    }
  }
  throw KeyError("no type is named '" + std::string(param.spec->type) + "', which parameter '" +
                 std::string(param.spec->name) + "' of " + std::string(spec.name()) + " is declared with");
}

bool all_texts(std::span<const Value> items) {
  return std::all_of(items.begin(), items.end(), [](const Value& item) { return item.is_text(); });
}

/// An item as a text, null for one that is a text as it stands.
Value text_unless_text(const Value& item) { return item.is_text() ? Value() : Value(plain_form(item)); }

}  // namespace

const Value* Normalizing::_coerced(const Param& param, const Value& value) {
  if (value.kind() == param.kind) {
    return _within(param, value);
  }
  changed = row_of(COERCIONS, spec, param).coerce(value);
  if (!changed.is_null()) {
    return _within(param, changed);
  }
  std::string& problem = problems.add();
  problem.append("Parameter '").append(param.spec->name).append("' of ").append(spec.name()).append(" must be ");
  problem.append(row_of(TYPE_WORDS, spec, param).words).append(", not ");
  append_quoted_form(problem, value);
  return nullptr;
}

/// A value of the parameter's type, matched with its enumeration or brought within its bounds.
const Value* Normalizing::_within(const Param& param, const Value& coerced) {
  if (param.as_it_is.takes(coerced)) {
    return &coerced;
  }
  if (param.type != TypeWord::array) {
    return param.lowered_enum.empty() ? _bounded(param, coerced) : _enum_value(param, coerced);
  }
  const Value* list = &coerced;
  if (param.items_are_texts && !all_texts(coerced.list())) {
    changed = changed_items(coerced, text_unless_text);
    list = &changed;
  }
  return param.lowered_enum.empty() ? list : _enum_values(param, *list);
}

}  // namespace tool_binding
