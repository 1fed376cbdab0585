// SPDX-License-Identifier: MIT
#include "json_rpc.hpp"

#include "text.hpp"

namespace repo_daemon {

namespace tb = tool_binding;

namespace {

bool is_id(const tb::Value& value) { return value.is_text() || value.is_integer(); }

std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

void require(bool holds, const char* words) {
  if (!holds) {
    throw ProtocolError{ErrorCode::invalid_request, words};
  }
}

}  // namespace

Message read_message(const tb::Value& value) {
  require(value.is_mapping(), "a message must be an object");
  const tb::ArgumentMap& members = value.mapping();
  const tb::Value* const version = members.find("jsonrpc");
  require(version != nullptr && version->is("2.0"), "'jsonrpc' must be '2.0'");
  const tb::Value* const id = members.find("id");
  require(id == nullptr || is_id(*id), "'id' must be text or an integer");
  const tb::Value* const method = members.find("method");
  require(method != nullptr && method->is_text(), "'method' must be text");
  return {.id = id == nullptr ? std::nullopt : std::optional(*id),
          .method = std::string(method->text()),
          .params = optional_object(members, "params")};
}

bool is_response(const tb::Value& value) {
  return value.is_mapping() && !value.mapping().contains("method") &&
         (value.mapping().contains("result") || value.mapping().contains("error"));
}

tb::Value id_of(const tb::Value& value) {
  const tb::Value* const id = value.is_mapping() ? value.mapping().find("id") : nullptr;
  return id != nullptr && is_id(*id) ? *id : tb::Value();
}

std::optional<tb::Text> optional_text(const tb::ArgumentMap& params, std::string_view name) {
  const tb::Value* const found = params.find(name);
  if (found == nullptr || found->is_null()) {
    return std::nullopt;
  }
  if (!found->is_text()) {
    throw ProtocolError{ErrorCode::invalid_params, quoted(name) + " must be text"};
  }
  return found->shared_text();
}

tb::Text required_text(const tb::ArgumentMap& params, std::string_view name) {
  if (std::optional<tb::Text> text = optional_text(params, name)) {
    return *std::move(text);
  }
  throw ProtocolError{ErrorCode::invalid_params, quoted(name) + " is missing"};
}

tb::ArgumentMap optional_object(const tb::ArgumentMap& params, std::string_view name) {
  const tb::Value* const found = params.find(name);
  if (found == nullptr || found->is_null()) {
    return {};
  }
  if (!found->is_mapping()) {
    throw ProtocolError{ErrorCode::invalid_params, quoted(name) + " must be an object"};
  }
  return found->mapping();
}

tb::Value result_message(const tb::Value& id, const tb::Value& result) {
  return tb::ArgumentMap{{"jsonrpc", "2.0"}, {"id", id}, {"result", result}};
}

tb::Value error_message(const tb::Value& id, ErrorCode code, std::string_view words) {
  const tb::ArgumentMap error = {{"code", static_cast<int>(code)}, {"message", well_formed(words)}};
  return tb::ArgumentMap{{"jsonrpc", "2.0"}, {"id", id}, {"error", error}};
}

}  // namespace repo_daemon
