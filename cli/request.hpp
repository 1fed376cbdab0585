// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "members.hpp"
#include "tool_binding/json/reader.hpp"

/// The two shapes in which a tool is called: the plain line {"tool": …, "arguments": …}, and the "tools/call" of
/// JSON-RPC 2.0.
namespace tool_binding::cli {

enum class Shape : std::uint8_t { plain, json_rpc };

/// The value that a line spells. Throws json::ParseError.
[[nodiscard]] Value read_line(json::Reader& reader, std::string_view text);

/// What a line says about the form of its answer, whether or not it is a request.
struct Envelope {
  Shape shape = Shape::plain;
  std::optional<Value> id = {};  ///< as it was sent, of whatever kind
};

/// What a request asks for.
struct Call {
  Text tool;
  Value arguments;  ///< a mapping
};

/// A line that has a member "jsonrpc" is meant as JSON-RPC, whatever else it has.
[[nodiscard]] Envelope envelope_of(const Value& line);

/// The same for a line that is not JSON, as far as its beginning tells.
[[nodiscard]] Envelope envelope_of_ill_formed(std::string_view line);

/// Throws InvalidRequest for a line that is not a request of that shape.
[[nodiscard]] Call read_call(const Value& line, Shape shape);

}  // namespace tool_binding::cli
