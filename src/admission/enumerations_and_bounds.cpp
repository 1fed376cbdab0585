// SPDX-License-Identifier: MIT
#include <compare>
#include <tuple>
#include <utility>

#include "admission/normalizing.hpp"
#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "values/forms.hpp"
#include "values/joined.hpp"

namespace tool_binding {

namespace {

/// Order by exact numeric value. Throws TypeError for a bound that is no number: a fault of the registry.
std::partial_ordering compare_numbers(const Value& value, const Value& bound) {
  if (!bound.is_integer() && !bound.is_floating()) {
    throw TypeError("a bound is an integer or a floating number");
  }
  if (value.is_integer()) {
    return bound.is_integer() ? value.integer() <=> bound.integer() : value.integer().compare(bound.floating());
  }
  return bound.is_integer() ? 0 <=> bound.integer().compare(value.floating()) : value.floating() <=> bound.floating();
}

Value as_integer(const Value& bound) {
  return bound.is_integer() ? bound : Value(Integer::truncated(bound.floating()));
}

Value as_floating(const Value& bound) { return bound.is_floating() ? bound : Value(bound.integer().to_double()); }

}  // namespace

Value Normalizing::_enum_value(const Param& param, const Text& value) {
  const Text key = text::lower_case(text::strip(value));
  for (std::size_t place = 0; place < param.lowered_enum.size(); ++place) {
    if (param.lowered_enum[place] == key) {
      return param.spec->enum_[place];
    }
  }
  std::string problem("Parameter '");
  problem.append(param.spec->name).append("' of ").append(spec.name()).append(" must");
  problem.append(param.type == detail::TypeWord::array ? " each" : "").append(" be one of: ");
  append_joined(problem, param.spec->enum_, ", ");
  append_quoted_form(problem.append("; not "), value);
  problems.push_back(std::move(problem));
  return {};
}

Value Normalizing::_bounded(const Param& param, Value value) {
  if (!value.is_integer() && !value.is_floating()) {
    return value;
  }
  const auto& [minimum, maximum] = std::tie(param.spec->minimum, param.spec->maximum);
  const bool below = !minimum.is_null() && compare_numbers(value, minimum) < 0;
  const bool above = !below && !maximum.is_null() && compare_numbers(value, maximum) > 0;
  if (!below && !above) {
    return value;
  }
  const Value& bound = below ? minimum : maximum;
  Value replacement = param.type == detail::TypeWord::integer ? as_integer(bound) : as_floating(bound);
  std::string note("'");
  append_quoted_form(note.append(param.spec->name).append("' "), value);
  note.append(below ? " is below the minimum: " : " is above the maximum: ");
  append_quoted_form(note, replacement);
  notes.push_back(note.append(" was used"));
  return replacement;
}

}  // namespace tool_binding
