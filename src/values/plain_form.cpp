// SPDX-License-Identifier: MIT
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "values/forms.hpp"

namespace tool_binding {
namespace {

/// The magnitudes from which on, and below which, digits alone are hard to read.
constexpr double exponent_from = 1e16;
constexpr double exponent_below = 1e-4;

/// As long as the longest double in either layout, with room to spare.
constexpr std::size_t longest_double = 32;

}  // namespace

Text plain_form(const Value& value) {
  if (value.is_text()) {
    return value.shared_text();
  }
  std::string form;
  append_plain_form(form, value);
  return Text(form);
}

void append_plain_form(std::string& out, const Value& value) {
  if (value.is_text()) {
    out += value.text();
    return;
  }
  append_quoted_form(out, value);
}

void append_floating(std::string& out, double number) {
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
