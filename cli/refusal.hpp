// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tool_binding/text.hpp"

namespace tool_binding::cli {

/// Why a line got no result, in the words of its answer.
struct Refusal {
  /// What was wrong with the line as a request; the codes are those of JSON-RPC 2.0.
  enum class Code : std::int16_t { none = 0, parse_error = -32700, invalid_request = -32600 };

  std::string_view error;  ///< the error's type
  Text message;
  Code code = Code::none;
};

/// The refusal that the exception being handled stands for. Any exception that refuses no line is thrown again.
/// Precondition: called while an exception is handled.
[[nodiscard]] Refusal current_refusal(std::size_t line_number);

}  // namespace tool_binding::cli
