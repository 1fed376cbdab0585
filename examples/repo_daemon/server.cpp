// SPDX-License-Identifier: MIT
#include "server.hpp"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>
#include <vector>

#include "pipeline.hpp"
#include "text.hpp"
#include "tool_binding/json/tool_list.hpp"
#include "tool_binding/json/writer.hpp"

namespace repo_daemon {

namespace tb = tool_binding;

namespace {

struct Version {
  std::string_view name;
  bool has_batches;
};

/// The protocol's versions, the newest first.
constexpr Version versions[] = {{"2025-06-18", false}, {"2025-03-26", true}, {"2024-11-05", true}};

const Version* version_named(std::string_view name) {
  const auto* const found = std::find_if(std::begin(versions), std::end(versions),
                                         [&](const Version& version) { return version.name == name; });
  return found == std::end(versions) ? nullptr : found;
}

/// A refusal repeats what was sent, and names what the tool takes for each unknown name: it may be many times as long
/// as the request.
tb::Value text_content(std::string_view text) {
  constexpr std::size_t most_bytes = 160 * 1024;
  return tb::ArgumentMap{{"type", "text"}, {"text", well_formed(shown(text, most_bytes))}};
}

tb::Value tool_result(const Outcome& outcome) {
  std::vector<tb::Value> content = {text_content(outcome.text)};
  for (const std::string& note : outcome.notes) {
    content.push_back(text_content("note: " + note));
  }
  return tb::ArgumentMap{{"content", content}, {"isError", outcome.refused}};
}

}  // namespace

const Server::Method Server::methods[] = {{"initialize", &Server::initialize},
                                          {"ping", &Server::ping},
                                          {"tools/list", &Server::list_tools},
                                          {"tools/call", &Server::call}};

Server::Server(tb::Handlers handlers, tb::KeywordArguments context)
    : handlers_(std::move(handlers)), context_(std::move(context)), version_(versions[0].name) {}

std::optional<std::string> Server::answer(std::string_view line) noexcept {
  try {
    const std::optional<Value> answer = answer_value(reader_.read(line));
    return answer ? std::optional(tb::json::write(*answer)) : std::nullopt;
  } catch (const tb::json::ParseError& error) {
    return tb::json::write(error_message(Value(), ErrorCode::ill_formed, error.message()));
  } catch (const std::exception& failure) {
    return tb::json::write(error_message(Value(), ErrorCode::internal_error, failure.what()));
  }
}

std::optional<std::string> Server::refuse_long_line(std::size_t most_bytes) {
  return tb::json::write(error_message(Value(), ErrorCode::invalid_request,
                                       "a line must not have more than " + std::to_string(most_bytes) + " bytes"));
}

std::optional<tb::Value> Server::answer_value(const Value& value) {
  return value.is_list() ? answer_batch(value.list()) : answer_message(value);
}

std::optional<tb::Value> Server::answer_batch(std::span<const Value> messages) {
  constexpr std::size_t most_messages = 50;
  if (!version_named(version_)->has_batches) {
    return error_message(Value(), ErrorCode::invalid_request,
                         "version " + std::string(version_) + " of the protocol has no batches");
  }
  if (messages.empty() || messages.size() > most_messages) {
    return error_message(Value(), ErrorCode::invalid_request,
                         "a batch must have 1 to " + std::to_string(most_messages) + " messages");
  }
  std::vector<Value> answers;
  for (const Value& message : messages) {
    if (std::optional<Value> answer = answer_message(message)) {
      answers.push_back(*std::move(answer));
    }
  }
  return answers.empty() ? std::nullopt : std::optional<Value>(std::move(answers));
}

std::optional<tb::Value> Server::answer_message(const Value& value) {
  if (is_response(value)) {
    return std::nullopt;
  }
  try {
    const Message message = read_message(value);
    return message.id ? std::optional(result_message(*message.id, run(message))) : std::nullopt;
  } catch (const ProtocolError& error) {
    return error_message(id_of(value), error.code, error.words);
  } catch (const std::exception& failure) {
    return error_message(id_of(value), ErrorCode::internal_error, failure.what());
  }
}

tb::Value Server::run(const Message& message) {
  const auto* const found = std::find_if(std::begin(methods), std::end(methods),
                                         [&](const Method& method) { return method.name == message.method; });
  if (found == std::end(methods)) {
    throw ProtocolError{ErrorCode::unknown_method, "unknown method '" + shown(message.method) + "'"};
  }
  return (this->*found->run)(message.params);
}

/// The version is the client's where it is known here, else the newest, which the client may then decline.
tb::Value Server::initialize(const Params& params) {
  const Version* const asked = version_named(required_text(params, "protocolVersion"));
  version_ = asked == nullptr ? versions[0].name : asked->name;
  return tb::ArgumentMap{
      {"protocolVersion", version_},
      {"capabilities", tb::ArgumentMap{{"tools", tb::ArgumentMap()}}},
      {"serverInfo", tb::ArgumentMap{{"name", "repo_daemon"}, {"version", "1.0"}}},
      {"instructions", "Tools over the files of one directory. Paths are given from that directory on."}};
}

tb::Value Server::ping(const Params&) { return tb::ArgumentMap(); }

tb::Value Server::list_tools(const Params& params) {
  if (optional_text(params, "cursor")) {
    throw ProtocolError{ErrorCode::invalid_params, "there is one page of tools, and no cursor"};
  }
  std::vector<Value> listed;
  for (const auto& [name, handler] : handlers_) {
    tb::ArgumentMap tool = tb::json::advertised_tool(tb::TOOLS[name]).mapping();
    tool.append("annotations", tb::ArgumentMap{{"readOnlyHint", true}});
    listed.emplace_back(std::move(tool));
  }
  return tb::ArgumentMap{{"tools", listed}};
}

tb::Value Server::call(const Params& params) {
  constexpr std::size_t most_arguments = 200;  // each unknown one is compared with every name that the tool takes
  const tb::Text name = required_text(params, "name");
  const tb::Handler* const handler = handlers_.find(name);
  if (handler == nullptr) {
    throw ProtocolError{ErrorCode::invalid_params, "unknown tool '" + shown(name) + "'"};
  }
  const tb::ArgumentMap arguments = optional_object(params, "arguments");
  if (arguments.size() > most_arguments) {
    throw ProtocolError{ErrorCode::invalid_params,
                        "a call must not have more than " + std::to_string(most_arguments) + " arguments"};
  }
  return tool_result(call_tool(name, *handler, arguments, context_));
}

}  // namespace repo_daemon
