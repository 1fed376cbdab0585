// SPDX-License-Identifier: MIT
#include "compile/fast_path.hpp"

#include <algorithm>
#include <optional>

#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "tool_binding/detail/numbers.hpp"

namespace tool_binding::detail {

namespace {

// Each sets `number` to a bound that is one, and leaves it where there is no bound. Whether the bound is of a kind that
// takes no more than one comparison.

bool read_bound(const Value& bound, std::int64_t& number) {
  number = bound.to_int64().value_or(number);
  return bound.is_null() || bound.to_int64();
}

bool read_bound(const Value& bound, double& number) {
  const std::optional<std::int64_t> small = bound.to_int64();
  const bool exact = small && is_exact_double(*small);
  if (bound.is_floating() || exact) {
    number = exact ? static_cast<double>(*small) : bound.floating();
  }
  return bound.is_null() || bound.is_floating() || exact;
}

/// The numbers that are certainly within a parameter's bounds.
template <class Number>
Range<Number> range_of(const ParamSpec& param) {
  Range<Number> range;
  const bool known = read_bound(param.minimum, range.least) && read_bound(param.maximum, range.greatest);
  return known && param.enum_.empty() ? range : Range<Number>{1, 0};
}

/// The values of an enumeration that name themselves once stripped and in lower case, as a request's value is read.
std::vector<Text> names_of(const std::vector<Text>& values, const std::vector<Text>& lowered) {
  std::vector<Text> names;
  for (const Text& value : values) {
    const auto named = std::find(lowered.begin(), lowered.end(), text::lower_case(text::strip(value)));
    if (named != lowered.end() && values[static_cast<std::size_t>(named - lowered.begin())] == value) {
      names.push_back(value);
    }
  }
  return names;
}

}  // namespace

FastPath::FastPath(const ParamSpec& param, Kind kind, bool items_are_texts, const std::vector<Text>& lowered_enum)
    : kind_(kind),
      takes_any_(param.enum_.empty() && !items_are_texts),
      has_names_(!param.enum_.empty()),
      integers_(range_of<std::int64_t>(param)),
      floating_(range_of<double>(param)),
      names_(names_of(param.enum_, lowered_enum)) {}

bool FastPath::takes_items(const Value& list) const {
  for (const Value& item : list.list()) {
    if (has_names_ ? !is_named(item) : !item.is_text()) {
      return false;
    }
  }
  return true;
}

}  // namespace tool_binding::detail
