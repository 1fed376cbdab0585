// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tool_binding/value.hpp"

/// The envelope of a message: JSON-RPC 2.0, with the Model Context Protocol's rule that an id is never null.
namespace repo_daemon {

enum class ErrorCode {
  ill_formed = -32700,
  invalid_request = -32600,
  unknown_method = -32601,
  invalid_params = -32602,
  internal_error = -32603,
};

/// A message that is answered with an error of the protocol, rather than with a tool's words.
struct ProtocolError {
  ErrorCode code;
  std::string words;
};

/// A request, or a notification, which has no id and is not answered.
struct Message {
  std::optional<tool_binding::Value> id;
  std::string method;
  tool_binding::ArgumentMap params;
};

/// Throws ProtocolError for a value that is neither a request nor a notification.
[[nodiscard]] Message read_message(const tool_binding::Value& value);

/// Whether the value answers a request. This daemon sends none and has nothing to do with answers.
[[nodiscard]] bool is_response(const tool_binding::Value& value);

/// The id to answer to, null where the value has none that can be told.
[[nodiscard]] tool_binding::Value id_of(const tool_binding::Value& value);

/// The member of that name, null where there is none. Throws ProtocolError for one that is not text.
[[nodiscard]] std::optional<tool_binding::Text> optional_text(const tool_binding::ArgumentMap& params,
                                                              std::string_view name);
[[nodiscard]] tool_binding::Text required_text(const tool_binding::ArgumentMap& params, std::string_view name);

/// The member of that name; the empty object for none, or null. Throws ProtocolError for one that is not an object.
[[nodiscard]] tool_binding::ArgumentMap optional_object(const tool_binding::ArgumentMap& params, std::string_view name);

[[nodiscard]] tool_binding::Value result_message(const tool_binding::Value& id, const tool_binding::Value& result);
[[nodiscard]] tool_binding::Value error_message(const tool_binding::Value& id, ErrorCode code, std::string_view words);

}  // namespace repo_daemon
