// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "output_style.hpp"
#include "reasons.hpp"

/// An account of one request for people. It decides nothing: it shows what admission found.
namespace tool_binding::cli {

/// What was sent; each problem on a line of its own; what the other arguments became and why; the notes; and for an
/// admitted request the keywords of the handler. Precondition: every context item is a `const Value`.
[[nodiscard]] std::string explanation_of(const Request& request, const Handler& handler,
                                         const KeywordArguments& context, const report::TextStyle& style);

/// What was sent, and why admission could not be finished.
[[nodiscard]] std::string explanation_of_failure(const ToolSpec& tool, const ArgumentMap& arguments,
                                                 std::string_view failure, const report::TextStyle& style);

}  // namespace tool_binding::cli
