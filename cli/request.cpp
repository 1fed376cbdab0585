// SPDX-License-Identifier: MIT
#include "request.hpp"

#include <algorithm>
#include <string>

#include "blocks.hpp"

namespace tool_binding::cli {

namespace {

void require(const ArgumentMap& members, const Text& name, std::string_view wanted) {
  if (required_text(members, name) != wanted) {
    throw InvalidRequest("'" + std::string(name) + "' must be '" + std::string(wanted) + "'");
  }
}

Call read_plain(const ArgumentMap& request) {
  return {required_text(request, "tool"), optional_object(request, "arguments")};
}

Call read_json_rpc(const ArgumentMap& request) {
  require(request, "jsonrpc", "2.0");
  require(request, "method", "tools/call");
  const Value params = required_object(request, "params");
  return {required_text(params.mapping(), "name"), optional_object(params.mapping(), "arguments")};
}

}  // namespace

Value read_line(json::Reader& reader, std::string_view text) {
  if (text.size() >= too_long) {
    throw json::ParseError(1, too_long, "a line of 256 MiB or more cannot be read");
  }
  return reader.read(text);
}

Envelope envelope_of(const Value& line) {
  if (!line.is_mapping()) {
    return {};
  }
  const Value* const id = line.mapping().find("id");
  return {line.mapping().contains("jsonrpc") ? Shape::json_rpc : Shape::plain,
          id == nullptr ? std::nullopt : std::optional(*id)};
}

Envelope envelope_of_ill_formed(std::string_view line) {
  for (const std::string_view token : {"{", "\"jsonrpc\"", ":"}) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t\r"), line.size()));
    if (!line.starts_with(token)) {
      return {};
    }
    line.remove_prefix(token.size());
  }
  return {.shape = Shape::json_rpc};
}

Call read_call(const Value& line, Shape shape) {
  const ArgumentMap& request = members_of(line);
  return shape == Shape::plain ? read_plain(request) : read_json_rpc(request);
}

}  // namespace tool_binding::cli
