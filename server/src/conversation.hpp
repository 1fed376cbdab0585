// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "caller_link.hpp"
#include "core.hpp"
#include "deadlines.hpp"
#include "json_rpc.hpp"
#include "tool_binding/json/reader.hpp"

namespace tool_binding::server::detail {

/// Takes messages for the client, from any thread.
using Sink = std::function<void(const std::string& message)>;

class Batch;

/// Where the answer to one request goes: to the client, or into the answer to its batch.
struct Reply {
  Sink sink;
  std::shared_ptr<Batch> batch = {};
  std::size_t slot = 0;

  void give(std::string message) const;
  void give_nothing() const;
};

class Conversation;

/// A share of what a client can make the server hold, given back with it.
class Share {
 public:
  Share(std::shared_ptr<Conversation> conversation, std::size_t bytes);
  Share(Share&&) noexcept = default;
  Share& operator=(Share&&) = delete;
  ~Share();

  [[nodiscard]] Conversation& conversation() const noexcept { return *conversation_; }

 private:
  std::shared_ptr<Conversation> conversation_;  ///< null once it is moved from
  std::size_t bytes_;
};

/// A request under way: the call of a tool, or an open subscription, which has none.
struct Running {
  Id id;
  const Version& version;
  Reply reply;
  Share share;
  const Tool* tool = nullptr;
  Value arguments = {};  ///< a mapping, or null for none
  std::shared_ptr<CallerLink> link = {};
  bool is_late = false;  ///< it ran for too long, and is answered
};

/// Who runs calls, and when.
class Runner {
 public:
  virtual ~Runner() = default;
  virtual void run(Conversation& conversation, std::shared_ptr<Running> call) = 0;
  /// Takes back a call that does not run yet; false when it is too late.
  [[nodiscard]] virtual bool take_back(const Running& call) = 0;
};

/// What one client has said, and what of it is under way. May be used from any number of threads at once.
class Conversation : public std::enable_shared_from_this<Conversation> {
 public:
  Conversation(std::shared_ptr<const Core> core, Session::Send send, std::shared_ptr<Runner> runner);

  /// Takes a message. What answers it goes to `sink`, now or when a call is done.
  void receive(std::string_view message, const Sink& sink);

  /// Answers a message that was too long to be read.
  void refuse_long_message(const Sink& sink);

  /// Runs a call and answers it, unless it was cancelled.
  void perform(const std::shared_ptr<Running>& call);

  /// Answers a call that runs for too long, and tells its handler; nothing when it is answered already.
  void expire(Running& call);

  /// The client is gone: answers open subscriptions, then cancels calls. Those that did not run are answered as such.
  void end_subscriptions();
  void cancel_calls();

  [[nodiscard]] const Core& core() const noexcept { return *core_; }

 private:
  friend class Share;
  struct Method;
  static const Method methods[];

  void receive_value(const Value& value, std::string_view text, const Sink& sink);
  void receive_batch(std::span<const Value> messages, std::string_view text, const Sink& sink);
  void refuse_batch(std::span<const Value> messages, std::string_view text, const Sink& sink, const std::string& words);
  void receive_one(const Received& received, const Reply& reply);
  void request(const Request& request, const Reply& reply);
  void notification(const ArgumentMap& message);

  [[nodiscard]] const Version& version_of(const Request& request) const;
  [[nodiscard]] const Version& session_version() const noexcept;

  void initialize(const Request& request, const Version& version, const Reply& reply);
  void discover(const Request& request, const Version& version, const Reply& reply);
  void ping(const Request& request, const Version& version, const Reply& reply);
  void set_level(const Request& request, const Version& version, const Reply& reply);
  void list_tools(const Request& request, const Version& version, const Reply& reply);
  void call(const Request& request, const Version& version, const Reply& reply);
  void listen(const Request& request, const Version& version, const Reply& reply);

  [[nodiscard]] Wishes wishes_of(const ArgumentMap& params, const Version& version) const;
  [[nodiscard]] std::string refusal_of(const ArgumentMap& arguments, const Request& request) const;
  [[nodiscard]] std::string want_of_room(std::size_t bytes) const;
  void enter(const std::shared_ptr<Running>& running);
  [[nodiscard]] std::shared_ptr<Running> withdrawn(const std::string& key);
  [[nodiscard]] std::string result_of(const Running& call) const;
  void finish(Running& call, std::string message);
  [[nodiscard]] bool has_withdrawn(const Running& call);
  void cancel(const std::string& key);

  const std::shared_ptr<const Core> core_;
  const Session::Send send_;
  const std::shared_ptr<Runner> runner_;
  std::atomic<const Version*> agreed_{nullptr};
  std::atomic<LogLevel> level_{LogLevel::info};
  std::atomic<std::size_t> held_requests_{0};
  std::atomic<std::size_t> held_bytes_{0};
  std::mutex reading_;
  json::Reader reader_;
  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<Running>> under_way_;  ///< by the keys of their ids
  Deadlines deadlines_;
};

}  // namespace tool_binding::server::detail
