// SPDX-License-Identifier: MIT
#include <algorithm>
#include <compare>
#include <tuple>
#include <utility>

#include "admission/changed_items.hpp"
#include "admission/normalizing.hpp"
#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "values/forms.hpp"
#include "values/joined.hpp"

namespace tool_binding {

namespace {

/// The declared value that `value` names, null when it names none.
const Text* named_value(const detail::PreparedParam& param, const Value& value) {
  const Text key = text::lower_case(text::strip(plain_form(value)));
  const auto found = std::find(param.lowered_enum.begin(), param.lowered_enum.end(), key);
  return found == param.lowered_enum.end() ? nullptr
                                           : &param.spec->enum_[std::size_t(found - param.lowered_enum.begin())];
}

/// A bound that is no number is a fault of the registry, not of the request.
[[noreturn]] void throw_no_number(std::string_view side, const Value& bound, const Text& param, const Text& tool) {
  std::string message = "the ";
  message.append(side).append(" of parameter '").append(param).append("' of ").append(tool);
  append_quoted_form(message.append(" must be a number, not "), bound);
  throw TypeError(message);
}

/// Order by exact numeric value.
std::partial_ordering compare_numbers(const Value& value, const Value& bound) {
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

const Value* Normalizing::_enum_value(const Param& param, const Value& value) {
  const Text* const declared = _named_value(param, value);
  if (declared == nullptr) {
    return nullptr;
  }
  changed = *declared;
  return &changed;
}

const Text* Normalizing::_named_value(const Param& param, const Value& value) {
  if (const Text* const declared = named_value(param, value); declared != nullptr) {
    return declared;
  }
  std::string& problem = problems.add();
  problem.append("Parameter '").append(param.spec->name).append("' of ").append(spec.name()).append(" must");
  problem.append(param.type == detail::TypeWord::array ? " each" : "").append(" be one of: ");
  append_joined(problem, param.spec->enum_, ", ");
  append_quoted_text(problem.append("; not "), plain_form(value));
  return nullptr;
}

/// Every item is tried, so that each one that names no value has a problem of its own.
const Value* Normalizing::_enum_values(const Param& param, const Value& list) {
  bool all_named = true;
  Value declared = changed_items(list, [&](const Value& item) {
    const Text* const named = _named_value(param, item);
    all_named = all_named && named != nullptr;
    return named == nullptr || item.is(*named) ? Value() : Value(*named);
  });
  if (!all_named) {
    return nullptr;
  }
  if (declared.is_null()) {
    return &list;  // every item is spelled as it is declared
  }
  changed = std::move(declared);
  return &changed;
}

const Value* Normalizing::_bounded(const Param& param, const Value& value) {
  const auto& [minimum, maximum] = std::tie(param.spec->minimum, param.spec->maximum);
  const auto order_to = [&](std::string_view side, const Value& bound) {
    if (!bound.is_integer() && !bound.is_floating()) {
      throw_no_number(side, bound, param.spec->name, spec.name());
    }
    return compare_numbers(value, bound);
  };
  const bool below = !minimum.is_null() && order_to("minimum", minimum) < 0;
  const bool above = !below && !maximum.is_null() && order_to("maximum", maximum) > 0;
  if (!below && !above) {
    return &value;
  }
  const Value& bound = below ? minimum : maximum;
  Value replacement = param.type == detail::TypeWord::integer ? as_integer(bound) : as_floating(bound);
  std::string& note = _add_note();
  append_quoted_form(note.append("'").append(param.spec->name).append("' "), value);
  note.append(below ? " is below the minimum: " : " is above the maximum: ");
  append_quoted_form(note, replacement);
  note.append(" was used");
  changed = std::move(replacement);
  return &changed;
}

}  // namespace tool_binding
