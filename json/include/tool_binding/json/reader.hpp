// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/value.hpp"

/// JSON text (RFC 8259) to values.
///
/// A number without fraction and exponent is an integer and keeps every digit; any other is the nearest double, an
/// infinity beyond the largest. The bare words NaN, Infinity and -Infinity are read as the doubles that they name. A
/// key given twice keeps its first place and its last value. An escape that is half of a surrogate pair is accepted and
/// held in its three-byte form. A text that is not well-formed UTF-8, begins with a byte order mark or is nested deeper
/// than 1,000 levels is refused.
namespace tool_binding::json {

/// Reads texts one after another and keeps its buffers from one to the next: about eight bytes for each of the longest
/// text so far. For one thread at a time.
class TOOL_BINDING_API Reader {
 public:
  Reader();
  Reader(Reader&&) noexcept;
  Reader& operator=(Reader&&) noexcept;
  ~Reader();

  /// The value that `text` spells; it refers to nothing of `text`. Throws ParseError for any other text and for one of
  /// 4 GiB or more, and may then be used again.
  [[nodiscard]] Value read(std::string_view text);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

/// The value that `text` spells, by a reader made for it alone.
[[nodiscard]] TOOL_BINDING_API Value read(std::string_view text);

}  // namespace tool_binding::json
