// SPDX-License-Identifier: MIT
#include "json_rpc.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "tool_binding/json/writer.hpp"
#include "wire.hpp"

namespace tool_binding::server::detail {

namespace {

constexpr std::size_t most_shown_bytes = 300;

bool is_id(const Value& value) {
  return value.is_text() || value.is_integer() ||
         (value.is_floating() && std::trunc(value.floating()) == value.floating() && std::isfinite(value.floating()));
}

void require(bool holds, const char* words) {
  if (!holds) {
    throw ProtocolError{ErrorCode::invalid_request, words};
  }
}

std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

}  // namespace

const Value* member(const ArgumentMap& members, std::string_view name) {
  const auto* const found =
      std::find_if(members.begin(), members.end(), [&](const auto& entry) { return entry.name.view() == name; });
  return found == members.end() ? nullptr : &found->value;
}

bool is_response(const Value& value) {
  return value.is_mapping() && !value.mapping().contains("method") &&
         (value.mapping().contains("result") || value.mapping().contains("error"));
}

bool is_notification(const Value& value) {
  if (!value.is_mapping() || value.mapping().contains("id")) {
    return false;
  }
  const Value* const method = member(value.mapping(), "method");
  return method != nullptr && method->is_text();
}

std::string key_of(const Value& id) {
  if (!is_id(id)) {
    return {};
  }
  if (const std::optional<std::int64_t> number = id.to_int64()) {
    return std::to_string(*number);
  }
  return json::write(id.is_floating() ? Value(Integer::truncated(id.floating())) : id);
}

std::optional<Id> id_of(const Received& received) {
  const Value* const id = received.value.is_mapping() ? member(received.value.mapping(), "id") : nullptr;
  if (id == nullptr || !is_id(*id)) {
    return std::nullopt;
  }
  Id found = {.sent = {}, .key = key_of(*id)};
  if (id->is_floating()) {
    found.sent = spelled_id(received.text, received.place);
  }
  if (found.sent.empty()) {
    found.sent = found.key;
  }
  return found;
}

Request read_request(const Received& received) {
  require(received.value.is_mapping(), "a message must be an object");
  const ArgumentMap& members = received.value.mapping();
  const Value* const version = member(members, "jsonrpc");
  require(version != nullptr && version->is("2.0"), "'jsonrpc' must be '2.0'");
  std::optional<Id> id = id_of(received);
  const Value* const method = member(members, "method");
  require(method != nullptr && method->is_text(), "'method' must be text");
  require(id.has_value(), "'id' must be text or a whole number");
  return {.id = *std::move(id),
          .method = method->shared_text(),
          .params = optional_object(members, "params"),
          .bytes = received.text.size()};
}

std::optional<Text> optional_text(const ArgumentMap& params, std::string_view name) {
  const Value* const found = member(params, name);
  if (found == nullptr || found->is_null()) {
    return std::nullopt;
  }
  if (!found->is_text()) {
    throw ProtocolError{ErrorCode::invalid_params, quoted(name) + " must be text"};
  }
  return found->shared_text();
}

Text required_text(const ArgumentMap& params, std::string_view name) {
  if (std::optional<Text> text = optional_text(params, name)) {
    return *std::move(text);
  }
  throw ProtocolError{ErrorCode::invalid_params, quoted(name) + " is missing"};
}

const ArgumentMap& optional_object(const ArgumentMap& params, std::string_view name) {
  static const auto& none = *new ArgumentMap;  // never destroyed: threads may still use it when the process ends
  const Value* const found = member(params, name);
  if (found == nullptr || found->is_null()) {
    return none;
  }
  if (!found->is_mapping()) {
    throw ProtocolError{ErrorCode::invalid_params, quoted(name) + " must be an object"};
  }
  return found->mapping();
}

std::string result_message(const Id& id, std::string_view result) {
  constexpr std::string_view before = R"({"jsonrpc": "2.0", "id": )";
  constexpr std::string_view between = R"(, "result": )";
  std::string message;
  message.reserve(before.size() + id.sent.size() + between.size() + result.size() + 1);
  return message.append(before).append(id.sent).append(between).append(result).append("}");
}

std::string error_message(const std::optional<Id>& id, const ProtocolError& error, const Version& version) {
  ArgumentMap members = {{"code", static_cast<int>(error.code)}, {"message", shortened(error.words, most_shown_bytes)}};
  if (!error.data.is_null()) {
    members.append("data", error.data);
  }
  std::string text = json::write(members);
  make_sendable(text);
  std::string message = R"({"jsonrpc": "2.0", )";
  if (id || version.has_null_ids) {
    message.append(R"("id": )").append(id ? id->sent : "null").append(", ");
  }
  return message.append(R"("error": )").append(text).append("}");
}

std::string notification_message(std::string_view method, const ArgumentMap& params) {
  std::string text = json::write(ArgumentMap{{"jsonrpc", "2.0"}, {"method", method}, {"params", params}});
  make_sendable(text);
  return text;
}

}  // namespace tool_binding::server::detail
