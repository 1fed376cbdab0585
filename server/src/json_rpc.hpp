// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tool_binding/value.hpp"
#include "versions.hpp"

/// The envelope of a message: JSON-RPC 2.0, with the protocol's rule that an id is a text or a whole number.
namespace tool_binding::server::detail {

enum class ErrorCode {
  ill_formed = -32700,
  invalid_request = -32600,
  unknown_method = -32601,
  invalid_params = -32602,
  internal_error = -32603,
  unserved_version = -32022,
};

/// A message that is answered with an error of the protocol, rather than with a tool's words.
struct ProtocolError {
  ErrorCode code;
  std::string words;
  Value data = {};
};

/// The id of a request: as it was sent, and in the one spelling that all equal ids share.
struct Id {
  std::string sent;
  std::string key;
};

/// Refers to the message that it was read from.
struct Request {
  Id id;
  Text method;
  const ArgumentMap& params;
  std::size_t bytes;  ///< of the message that it came in
};

/// A message of a client, where in the text of which it stands, and its place in a batch.
struct Received {
  const Value& value;
  std::string_view text;
  std::size_t place = 0;
};

/// Whether the value answers a request. A server of tools sends none and has nothing to do with answers.
[[nodiscard]] bool is_response(const Value& value);

/// Whether the value is a notification: one with an id, even null, asks for an answer.
[[nodiscard]] bool is_notification(const Value& value);

/// The id to answer to; none where the message has none that can be told.
[[nodiscard]] std::optional<Id> id_of(const Received& received);

/// The key of an id that another message refers to; empty for what is no id.
[[nodiscard]] std::string key_of(const Value& id);

/// Throws ProtocolError for a value that is not a request.
[[nodiscard]] Request read_request(const Received& received);

/// The member of that name, null where there is none. A message has few, and is asked for few: they are gone through.
[[nodiscard]] const Value* member(const ArgumentMap& members, std::string_view name);

/// The member of that name; none where there is none, or null. Throws ProtocolError for one that is not text.
[[nodiscard]] std::optional<Text> optional_text(const ArgumentMap& params, std::string_view name);
[[nodiscard]] Text required_text(const ArgumentMap& params, std::string_view name);

/// The member of that name, in its place; the empty object for none, or null. Throws ProtocolError for one that is not
/// an object.
[[nodiscard]] const ArgumentMap& optional_object(const ArgumentMap& params, std::string_view name);

/// Messages, from the text of a result that is fit to be sent.
[[nodiscard]] std::string result_message(const Id& id, std::string_view result);
[[nodiscard]] std::string error_message(const std::optional<Id>& id, const ProtocolError& error,
                                        const Version& version);
[[nodiscard]] std::string notification_message(std::string_view method, const ArgumentMap& params);

}  // namespace tool_binding::server::detail
