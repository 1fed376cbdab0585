// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/report/report.hpp"

/// Reports for people.
namespace tool_binding::report {

/// How a page for a terminal looks: no colour unless a code is given.
struct TextStyle {
  std::size_t width = 100;  ///< in columns; lines are kept to it as far as their content allows
  std::string_view heading = {};
  std::string_view good = {};
  std::string_view changed = {};
  std::string_view bad = {};
  std::string_view aside = {};
  std::string_view off = {};
};

/// The report as aligned text with bars. Texts from requests are shown with everything escaped that a terminal would
/// obey.
[[nodiscard]] TOOL_BINDING_API std::string text_page(const Report& report, const TextStyle& style);

/// The report as one HTML page that needs nothing from elsewhere and runs nothing, light or dark as its reader has it.
/// Every text from a request is escaped.
[[nodiscard]] TOOL_BINDING_API std::string html_page(const Report& report);

}  // namespace tool_binding::report
