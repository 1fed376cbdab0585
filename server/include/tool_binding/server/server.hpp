// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/json/tool_list.hpp"
#include "tool_binding/server/answer.hpp"
#include "tool_binding/server/call.hpp"
#include "tool_binding/server/served_tool.hpp"
#include "tool_binding/text.hpp"
#include "tool_binding/tool_registry.hpp"

/// A server of tools for clients of the Model Context Protocol, in the versions 2024-11-05, 2025-03-26, 2025-06-18,
/// 2025-11-25 and 2026-07-28.
///
/// Each call is admitted, bound and taken to its handler by the layer. What admission changed reaches the caller as
/// notes in the content, and what it found, notes and problems, as data in the result's `_meta` under
/// "tool-binding/findings". A refused call is a result with `isError`, so that whoever wrote it reads why.
namespace tool_binding::server {

/// What a client is told of the server.
struct ServerInfo {
  Text name;
  Text version;
  Text title = {};         ///< a name for people
  Text instructions = {};  ///< what the tools are for, for whoever calls them
};

/// What one client can make the server hold or wait for. What goes beyond is refused with words that name the limit.
struct Limits {
  std::size_t message_bytes = 4UL * 1024 * 1024;  ///< of one message
  std::size_t batch_messages = 50;                ///< of one batch, in the versions that have batches
  std::size_t arguments = 200;                    ///< of one call; each unknown one is compared with every parameter
  std::size_t calls = 64;                         ///< under way: those that run, that wait, and open subscriptions
  std::size_t held_bytes = 16UL * 1024 * 1024;    ///< of the messages whose calls are under way
  std::size_t refusal_bytes = 160UL * 1024;       ///< of the words and of the findings of one result
  std::size_t logs = 1000;                        ///< messages to the log from one call
  std::chrono::milliseconds progress_interval{100};
  /// How long one call may run, 0 for any time. Then its handler is told that it is cancelled, and the caller gets an
  /// error that says so.
  std::chrono::milliseconds call_time{0};
  /// How long calls may go on when the input has ended, and how long those have to stop that are cancelled then. Common
  /// clients end a process that is still there after two seconds.
  std::chrono::milliseconds finishing{1000};
  std::chrono::milliseconds stopping{500};
};

/// How a server works.
struct Options {
  /// The threads that run calls: as many calls run at once, the answers come as they are ready, and meanwhile messages
  /// are read, so that pings are answered and calls can be cancelled. With 0, calls run in the thread that reads.
  std::size_t workers = 1;
  Limits limits = {};
  /// The context that is offered to all handlers, beside the call that each may take.
  KeywordArguments context = {};
  /// The schemas that callers are told: `open` for clients that validate before they send, which would else send
  /// nothing that admission could mend.
  json::SchemaForm schemas = json::SchemaForm::common;
  /// Where the tools are declared: a table that the daemon keeps alive; null for one of the server's own.
  ToolTable* table = nullptr;
};

namespace detail {
class Core;
class Conversation;
}  // namespace detail

/// The tools and their handlers, ready to be served. Immutable, copied without copying its content; any number of
/// clients may be served at once.
class TOOL_BINDING_API Server {
 public:
  /// Throws RegistryError with every error of the declarations, and of handlers that do not fit them; ValueError for a
  /// context item of a name under which a handler takes its call.
  Server(ServerInfo info, const std::vector<ServedTool>& tools, Options options = {});

  /// Serves one client, a message a line, until the input ends or nobody reads the answers: standard input and output,
  /// or any other two file descriptors, which stay open.
  ///
  /// Returns the number of calls that are not over: of handlers that did not stop in time. They may still use what the
  /// context refers to, so that a process with such calls has to end without destroying it, by std::_Exit.
  std::size_t serve(int in = 0, int out = 1) const;

 private:
  friend class Session;
  std::shared_ptr<const detail::Core> core_;
};

/// One client of a server over a transport of the daemon's own.
class TOOL_BINDING_API Session {
 public:
  /// Takes a message for the client that answers nothing: progress, log, and the answers of open subscriptions.
  /// Called from the thread of `answer` or `end`, and from those of handlers. May throw nothing.
  using Send = std::function<void(const std::string& message)>;

  /// Without `send` handlers have nobody to report to, and there are no subscriptions.
  explicit Session(const Server& server, Send send = {});

  /// Takes a message and returns the messages that answer it: none for a notification, a response or a cancelled call;
  /// mostly one. Calls run in the calling thread. May be called from several threads at once, which is how one message
  /// cancels the call of another. Throws std::bad_alloc only.
  [[nodiscard]] std::vector<std::string> answer(std::string_view message);

  /// The client is gone: cancels what runs, and answers open subscriptions.
  void end();

 private:
  std::shared_ptr<detail::Conversation> conversation_;
};

}  // namespace tool_binding::server
