// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "tool_binding/errors.hpp"

namespace tool_binding::cli {

/// Why a line got no result, in the words of its answer.
struct Refusal {
  /// What was wrong with the line as a request; the codes are those of JSON-RPC 2.0.
  enum class Code : std::int16_t { none = 0, parse_error = -32700, invalid_request = -32600 };

  std::string_view error;  ///< the error's type
  Text message;
  Code code = Code::none;
  bool with_findings = false;  ///< whether the answer has a list of findings, which is empty
};

/// The refusal that the error being handled stands for. An error that refuses no line is thrown again: none is thrown
/// again for those that do, since that costs as much as all else that is done for a line.
/// Precondition: called while `error` is handled.
[[nodiscard]] Refusal refusal_of(const Error& error, std::size_t line_number);
[[nodiscard]] Refusal refusal_of(const std::overflow_error& error);

}  // namespace tool_binding::cli
