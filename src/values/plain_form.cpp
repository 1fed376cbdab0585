// SPDX-License-Identifier: MIT
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tool_binding/detail/rounding.hpp"
#include "values/forms.hpp"

namespace tool_binding {
namespace {

/// The magnitudes from which on, and below which, digits alone are hard to read.
constexpr double exponent_from = 1e16;
constexpr double exponent_below = 1e-4;

/// As long as the longest double in either layout, with room to spare.
constexpr std::size_t longest_double = 32;

/// Appends the numbers that people write, of up to three decimal places, at a tenth of what the others cost. Returns
/// whether `number` is one. A decimal of up to 15 digits that reads back as the same double is the only one so short;
/// the comparison that tells it holds where the quotient is rounded to nearest.
bool append_everyday_number(TextBuilder& out, double number) {
  constexpr double few_digits = 1e9;
  constexpr double half = 0.5;
  if (std::signbit(number) || !(number < few_digits) || !detail::rounds_to_nearest()) {
    return false;
  }
  for (std::int64_t scale = 1; scale <= 1000; scale *= 10) {
    const auto units = static_cast<std::int64_t>(number * static_cast<double>(scale) + half);
    if (static_cast<double>(units) / static_cast<double>(scale) == number) {
      char buffer[longest_double];
      char* const point = std::to_chars(buffer, buffer + sizeof buffer, units / scale).ptr;
      const std::int64_t decimals = scale == 1 ? 10 : scale + units % scale;  // after a 1, where the point will be
      const char* const end = std::to_chars(point, buffer + sizeof buffer, decimals).ptr;
      *point = '.';
      out.append({buffer, static_cast<std::size_t>(end - buffer)});
      return true;
    }
  }
  return false;
}

}  // namespace

Text plain_form(const Value& value) {
  if (value.is_text()) {
    return value.shared_text();
  }
  TextBuilder form;
  append_plain_form(form, value);
  return Text(form.view());
}

void append_plain_form(TextBuilder& out, const Value& value) {
  if (value.is_text()) {
    out += value.text();
  } else if (value.is_floating()) {
    append_floating(out, value.floating());
  } else {
    append_quoted_form(out, value);
  }
}

void append_floating(TextBuilder& out, double number) {
  if (append_everyday_number(out, number)) {
    return;
  }
  if (!std::isfinite(number)) {
    out += std::isnan(number) ? "nan" : number < 0 ? "-inf" : "inf";
    return;
  }
  const double magnitude = std::fabs(number);
  const bool in_full = magnitude == 0 || (magnitude >= exponent_below && magnitude < exponent_from);
  char buffer[longest_double];
  const char* const end = std::to_chars(buffer, buffer + sizeof buffer, number,
                                        in_full ? std::chars_format::fixed : std::chars_format::scientific)
                              .ptr;
  const std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
  out += digits;
  if (in_full && digits.find('.') == std::string_view::npos) {
    out += ".0";
  }
}

}  // namespace tool_binding
