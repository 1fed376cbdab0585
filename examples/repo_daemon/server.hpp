// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "json_rpc.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/registry_check.hpp"

namespace repo_daemon {

/// Answers the messages of one client, as the Model Context Protocol has them on standard input and output.
class Server {
 public:
  /// `handlers` answer the tools that are declared. Each gets the items of `context` that it takes.
  Server(tool_binding::Handlers handlers, tool_binding::KeywordArguments context);

  /// The answer to one line, without a line feed; none where none is due. No line makes it throw.
  [[nodiscard]] std::optional<std::string> answer(std::string_view line) noexcept;

  /// The answer to a line with more bytes than are read.
  [[nodiscard]] static std::optional<std::string> refuse_long_line(std::size_t most_bytes);

 private:
  using Value = tool_binding::Value;
  using Params = tool_binding::ArgumentMap;
  struct Method {
    std::string_view name;
    Value (Server::*run)(const Params& params);
  };
  static const Method methods[];

  [[nodiscard]] std::optional<Value> answer_value(const Value& value);
  [[nodiscard]] std::optional<Value> answer_batch(std::span<const Value> messages);
  [[nodiscard]] std::optional<Value> answer_message(const Value& value);
  [[nodiscard]] Value run(const Message& message);

  [[nodiscard]] Value initialize(const Params& params);
  [[nodiscard]] Value ping(const Params& params);
  [[nodiscard]] Value list_tools(const Params& params);
  [[nodiscard]] Value call(const Params& params);

  tool_binding::Handlers handlers_;
  tool_binding::KeywordArguments context_;
  tool_binding::json::Reader reader_;
  std::string_view version_;  ///< of the protocol, as agreed upon
};

}  // namespace repo_daemon
