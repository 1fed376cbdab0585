// SPDX-License-Identifier: MIT
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tool_binding/detail/floating_form.hpp"
#include "tool_binding/detail/rounding.hpp"
#include "values/forms.hpp"

namespace tool_binding {
namespace {

/// The magnitudes from which on, and below which, digits alone are hard to read.
constexpr double exponent_from = 1e16;
constexpr double exponent_below = 1e-4;

/// Writes the numbers that people write, of up to three decimal places, at a tenth of what the others cost. Returns the
/// end, null where `number` is not one. A decimal of up to 15 digits that reads back as the same double is the only one
/// so short; the comparison that tells it holds where the quotient is rounded to nearest.
char* write_everyday_number(char* out, double number) noexcept {
  constexpr double few_digits = 1e9;
  constexpr double half = 0.5;
  if (std::signbit(number) || !(number < few_digits) || !detail::rounds_to_nearest()) {
    return nullptr;
  }
  char* const limit = out + detail::longest_floating_form;
  for (std::int64_t scale = 1; scale <= 1000; scale *= 10) {
    const auto units = static_cast<std::int64_t>(number * static_cast<double>(scale) + half);
    if (static_cast<double>(units) / static_cast<double>(scale) == number) {
      char* const point = std::to_chars(out, limit, units / scale).ptr;
      const std::int64_t decimals = scale == 1 ? 10 : scale + units % scale;  // after a 1, where the point will be
      char* const end = std::to_chars(point, limit, decimals).ptr;
      *point = '.';
      return end;
    }
  }
  return nullptr;
}

char* copy(std::string_view piece, char* out) noexcept { return std::copy(piece.begin(), piece.end(), out); }

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
  out.append_written(detail::longest_floating_form,
                     [number](char* room) { return detail::write_floating_form(room, number); });
}

char* detail::write_floating_form(char* out, double number) noexcept {
  if (char* const end = write_everyday_number(out, number)) {
    return end;
  }
  if (!std::isfinite(number)) {
    return copy(std::isnan(number) ? "nan" : number < 0 ? "-inf" : "inf", out);
  }
  const double magnitude = std::fabs(number);
  const bool in_full = magnitude == 0 || (magnitude >= exponent_below && magnitude < exponent_from);
  char* const end = std::to_chars(out, out + longest_floating_form, number,
                                  in_full ? std::chars_format::fixed : std::chars_format::scientific)
                        .ptr;
  return in_full && std::find(out, end, '.') == end ? copy(".0", end) : end;
}

}  // namespace tool_binding
