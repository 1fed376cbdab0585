// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/errors.hpp"

namespace tool_binding::json {

/// A text that is not JSON (RFC 8259), with the place of the fault.
///
/// Its message is "line 3, byte 17: " and what is wrong there.
class TOOL_BINDING_API ParseError : public ValueError {
 public:
  ParseError(std::size_t line, std::size_t byte, std::string_view words);

  /// The line, counted from 1. A line ends with a line feed.
  [[nodiscard]] std::size_t line() const noexcept { return line_; }

  /// The byte within that line, counted from 1. For a text that ends too early it is the one after the last.
  [[nodiscard]] std::size_t byte() const noexcept { return byte_; }

 private:
  std::size_t line_;
  std::size_t byte_;
};

}  // namespace tool_binding::json
