// SPDX-License-Identifier: MIT
#include "conversation.hpp"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>
#include <vector>

#include "tool_binding/errors.hpp"
#include "tool_call.hpp"
#include "wire.hpp"

namespace tool_binding::server::detail {

namespace {

constexpr std::string_view version_key = "io.modelcontextprotocol/protocolVersion";
constexpr std::string_view capabilities_key = "io.modelcontextprotocol/clientCapabilities";
constexpr std::string_view level_key = "io.modelcontextprotocol/logLevel";
constexpr std::string_view subscription_key = "io.modelcontextprotocol/subscriptionId";

bool is_modern(const ArgumentMap& meta) {
  return member(meta, version_key) != nullptr || member(meta, capabilities_key) != nullptr;
}

Value modern_versions() {
  std::vector<Value> names;
  for (const Version& version : all_versions()) {
    if (version.is_modern) {
      names.emplace_back(version.name);
    }
  }
  return names;
}

std::string missing_key(std::string_view key) { return "'_meta' must have '" + std::string(key) + "'"; }

/// The version of a request that names one itself.
const Version& named_version(const ArgumentMap& meta) {
  const Value* const name = member(meta, version_key);
  const Value* const capabilities = member(meta, capabilities_key);
  if (name == nullptr || !name->is_text()) {
    throw ProtocolError{ErrorCode::invalid_params, missing_key(version_key) + ", a text"};
  }
  const Version* const version = version_named(name->text());
  if (version == nullptr || !version->is_modern) {
    throw ProtocolError{ErrorCode::unserved_version, "this version of the protocol is not served",
                        ArgumentMap{{"supported", modern_versions()}, {"requested", *name}}};
  }
  if (capabilities == nullptr || !capabilities->is_mapping()) {
    throw ProtocolError{ErrorCode::invalid_params, missing_key(capabilities_key) + ", an object"};
  }
  return *version;
}

LogLevel level_of(const Text& word) {
  if (const std::optional<LogLevel> level = level_named(word)) {
    return *level;
  }
  throw ProtocolError{ErrorCode::invalid_params, "'" + shortened(word, 100) +
                                                     "' is not a level of the log: debug, info, notice, warning, "
                                                     "error, critical, alert or emergency"};
}

std::string subscription_result(const Value& id) {
  return sendable(ArgumentMap{{"resultType", "complete"}, {"_meta", ArgumentMap{{subscription_key, id}}}});
}

bool is_request(const Value& value) {
  return value.is_mapping() && value.mapping().contains("id") && !is_response(value);
}

}  // namespace

/// The answers to a batch, which go out together when the last is there.
class Batch {
 public:
  Batch(Sink sink, std::size_t messages) : sink_(std::move(sink)), answers_(messages), missing_(messages) {}

  void give(std::size_t slot, std::string message) {
    const std::lock_guard lock(mutex_);
    answers_[slot] = std::move(message);
    if (--missing_ == 0) {
      send();
    }
  }

 private:
  void send() {
    std::string all;
    for (const std::string& answer : answers_) {
      if (!answer.empty()) {
        all.append(all.empty() ? "[" : ", ").append(answer);
      }
    }
    if (!all.empty()) {
      sink_(all.append("]"));
    }
  }

  Sink sink_;
  std::mutex mutex_;
  std::vector<std::string> answers_;
  std::size_t missing_;
};

void Reply::give(std::string message) const {
  if (batch) {
    batch->give(slot, std::move(message));
  } else {
    sink(message);
  }
}

void Reply::give_nothing() const {
  if (batch) {
    batch->give(slot, {});
  }
}

Share::Share(std::shared_ptr<Conversation> conversation, std::size_t bytes)
    : conversation_(std::move(conversation)), bytes_(bytes) {
  ++conversation_->held_requests_;
  conversation_->held_bytes_ += bytes_;
}

Share::~Share() {
  if (conversation_) {
    --conversation_->held_requests_;
    conversation_->held_bytes_ -= bytes_;
  }
}

Conversation::Conversation(std::shared_ptr<const Core> core, Session::Send send, std::shared_ptr<Runner> runner)
    : core_(std::move(core)),
      send_(std::move(send)),
      runner_(std::move(runner)),
      deadlines_(core_->limits().call_time) {}

const Version& Conversation::session_version() const noexcept {
  const Version* const agreed = agreed_.load();
  return agreed == nullptr ? offered_version() : *agreed;
}

void Conversation::refuse_long_message(const Sink& sink) {
  sink(error_message(std::nullopt,
                     {ErrorCode::invalid_request,
                      "a message may have at most " + std::to_string(core_->limits().message_bytes) + " bytes"},
                     session_version()));
}

void Conversation::receive(std::string_view message, const Sink& sink) {
  if (is_blank_line(message)) {
    return;
  }
  if (message.size() > core_->limits().message_bytes) {
    return refuse_long_message(sink);
  }
  try {
    Value value;
    {
      const std::lock_guard lock(reading_);
      value = reader_.read(message);
    }
    if (const std::size_t place = place_of_bare_word(message); place != std::string_view::npos) {
      throw json::ParseError(1, place + 1, "JSON has no number like this: write null, or leave it out");
    }
    receive_value(value, message, sink);
  } catch (const json::ParseError& error) {
    sink(error_message(std::nullopt, {ErrorCode::ill_formed, std::string(error.message())}, session_version()));
  }
}

void Conversation::receive_value(const Value& value, std::string_view text, const Sink& sink) {
  if (value.is_list()) {
    receive_batch(value.list(), text, sink);
  } else {
    receive_one({value, text}, {sink});
  }
}

void Conversation::receive_batch(std::span<const Value> messages, std::string_view text, const Sink& sink) {
  const Version* const agreed = agreed_.load();
  if (agreed == nullptr || !agreed->has_batches) {
    return refuse_batch(messages, text, sink,
                        agreed == nullptr ? "a message must be an object: batches need a version that has them"
                                          : "version " + std::string(agreed->name) + " of the protocol has no batches");
  }
  if (messages.empty() || messages.size() > core_->limits().batch_messages) {
    return refuse_batch(messages, text, sink,
                        "a batch must have 1 to " + std::to_string(core_->limits().batch_messages) + " messages");
  }
  const auto batch = std::make_shared<Batch>(sink, messages.size());
  for (std::size_t place = 0; place < messages.size(); ++place) {
    receive_one({messages[place], text, place}, {sink, batch, place});
  }
}

/// Each request of it is answered, so that nobody waits for one.
void Conversation::refuse_batch(std::span<const Value> messages, std::string_view text, const Sink& sink,
                                const std::string& words) {
  const ProtocolError error = {ErrorCode::invalid_request, words};
  bool has_answered = false;
  for (std::size_t place = 0; place < messages.size(); ++place) {
    const std::optional<Id> id = id_of({messages[place], text, place});
    if (id && is_request(messages[place])) {
      has_answered = true;
      sink(error_message(id, error, session_version()));
    }
  }
  if (!has_answered) {
    sink(error_message(std::nullopt, error, session_version()));
  }
}

void Conversation::receive_one(const Received& received, const Reply& reply) {
  if (is_response(received.value)) {
    return reply.give_nothing();
  }
  if (is_notification(received.value)) {
    notification(received.value.mapping());
    return reply.give_nothing();
  }
  try {
    request(read_request(received), reply);
  } catch (const ProtocolError& error) {
    reply.give(error_message(id_of(received), error, session_version()));
  }
}

/// Where a request may be answered: before there is a session, in one, by the rules of a modern version.
struct Conversation::Method {
  std::string_view name;
  bool in_sessions;
  bool in_modern_versions;
  void (Conversation::*run)(const Request& request, const Version& version, const Reply& reply);
};

const Conversation::Method Conversation::methods[] = {
    {"tools/call", true, true, &Conversation::call},
    {"tools/list", true, true, &Conversation::list_tools},
    {"ping", true, false, &Conversation::ping},
    {"initialize", true, false, &Conversation::initialize},
    {"logging/setLevel", true, false, &Conversation::set_level},
    {"server/discover", false, true, &Conversation::discover},
    {"subscriptions/listen", false, true, &Conversation::listen},
};

void Conversation::request(const Request& request, const Reply& reply) {
  const Version& version = version_of(request);
  if (reply.batch && (version.is_modern || request.method == "initialize")) {
    throw ProtocolError{ErrorCode::invalid_request, "this request must not stand in a batch"};
  }
  const auto* const found = std::find_if(std::begin(methods), std::end(methods), [&](const Method& method) {
    return method.name == request.method && (version.is_modern ? method.in_modern_versions : method.in_sessions);
  });
  if (found == std::end(methods)) {
    throw ProtocolError{ErrorCode::unknown_method, "unknown method '" + shortened(request.method, 200) + "'"};
  }
  (this->*found->run)(request, version, reply);
}

const Version& Conversation::version_of(const Request& request) const {
  if (request.method == "initialize") {
    return offered_version();
  }
  const Value* const given = member(request.params, "_meta");
  if (given != nullptr && given->is_mapping() && is_modern(given->mapping())) {
    return named_version(given->mapping());
  }
  if (const Version* const agreed = agreed_.load(); agreed != nullptr) {
    return *agreed;
  }
  if (request.method == "ping") {
    return offered_version();
  }
  throw ProtocolError{ErrorCode::invalid_params, "send 'initialize' first, or with each request a '_meta' that has '" +
                                                     std::string(version_key) + "' and '" +
                                                     std::string(capabilities_key) + "'"};
}

/// A notification carries no version, and is never answered: what is wrong with one is passed over.
void Conversation::notification(const ArgumentMap& message) {
  const Value* const params = member(message, "params");
  if (!member(message, "method")->is("notifications/cancelled") || params == nullptr || !params->is_mapping()) {
    return;
  }
  const Value* const id = member(params->mapping(), "requestId");
  if (const std::string key = id == nullptr ? std::string() : key_of(*id); !key.empty()) {
    cancel(key);
  }
}

void Conversation::initialize(const Request& request, const Version& /*offered*/, const Reply& reply) {
  const Version* const asked = version_named(required_text(request.params, "protocolVersion"));
  const Version& version = asked == nullptr || asked->is_modern ? offered_version() : *asked;
  agreed_.store(&version);
  reply.give(result_message(request.id, core_->greeting(version)));
}

void Conversation::discover(const Request& request, const Version& version, const Reply& reply) {
  reply.give(result_message(request.id, core_->greeting(version)));
}

void Conversation::ping(const Request& request, const Version& /*version*/, const Reply& reply) {
  reply.give(result_message(request.id, "{}"));
}

void Conversation::set_level(const Request& request, const Version& /*version*/, const Reply& reply) {
  if (!core_->has_log()) {
    throw ProtocolError{ErrorCode::unknown_method, "this server has no log"};
  }
  level_.store(level_of(required_text(request.params, "level")));
  reply.give(result_message(request.id, "{}"));
}

void Conversation::list_tools(const Request& request, const Version& version, const Reply& reply) {
  if (optional_text(request.params, "cursor")) {
    throw ProtocolError{ErrorCode::invalid_params, "there is one page of tools, and no cursor"};
  }
  reply.give(result_message(request.id, core_->tool_list(version)));
}

Wishes Conversation::wishes_of(const ArgumentMap& params, const Version& version) const {
  Wishes wishes = {.level = version.is_modern ? nullptr : &level_, .version = &version};
  const ArgumentMap& meta = optional_object(params, "_meta");
  if (const Value* const token = member(meta, "progressToken");
      token != nullptr && (token->is_text() || token->is_integer())) {
    wishes.progress_token = *token;
  }
  if (const std::optional<Text> level = optional_text(meta, level_key); level && version.is_modern) {
    wishes.own_level = level_of(*level);
  }
  return wishes;
}

std::string Conversation::want_of_room(std::size_t bytes) const {
  const Limits& limits = core_->limits();
  if (held_requests_ >= limits.calls) {
    return std::to_string(limits.calls) + " calls are under way: send this one again when one of them is answered";
  }
  return held_requests_ > 0 && held_bytes_ + bytes > limits.held_bytes
             ? "the calls under way hold as much as they may: send this one again when one of them is answered"
             : "";
}

/// Why a call is not made, empty when it is.
std::string Conversation::refusal_of(const ArgumentMap& arguments, const Request& request) const {
  const std::size_t most = core_->limits().arguments;
  if (arguments.size() > most) {
    return "a call may have at most " + std::to_string(most) + " arguments, not " + std::to_string(arguments.size());
  }
  return want_of_room(request.bytes);
}

void Conversation::call(const Request& request, const Version& version, const Reply& reply) {
  const Text name = required_text(request.params, "name");
  const Tool* const tool = core_->tool_named(name);
  if (tool == nullptr) {
    throw ProtocolError{ErrorCode::invalid_params, core_->unknown_tool_words(name)};
  }
  const ArgumentMap& arguments = optional_object(request.params, "arguments");
  Wishes wishes = wishes_of(request.params, version);
  if (const std::string words = refusal_of(arguments, request); !words.empty()) {
    return reply.give(result_message(request.id, refused_call(*core_, words, version)));
  }
  const auto running = std::make_shared<Running>(
      Running{.id = request.id,
              .version = version,
              .reply = reply,
              .share = Share(shared_from_this(), request.bytes),
              .tool = tool,
              .arguments = arguments.empty() ? Value() : *member(request.params, "arguments"),
              .link = std::make_shared<CallerLink>(std::move(wishes), core_->limits(), send_)});
  enter(running);
  runner_->run(*this, running);
}

/// This server's tools stay what they are: a subscription is kept open, and hears of nothing.
void Conversation::listen(const Request& request, const Version& version, const Reply& reply) {
  if (!send_) {
    throw ProtocolError{ErrorCode::unknown_method, "there are no subscriptions over this transport"};
  }
  if (const std::string words = want_of_room(request.bytes); !words.empty()) {
    throw ProtocolError{ErrorCode::invalid_request, words};
  }
  const Value* const notifications = member(request.params, "notifications");
  if (notifications == nullptr || !notifications->is_mapping()) {
    throw ProtocolError{ErrorCode::invalid_params, "'notifications' must be an object"};
  }
  static_cast<void>(reply);
  enter(std::make_shared<Running>(Running{
      .id = request.id, .version = version, .reply = {send_}, .share = Share(shared_from_this(), request.bytes)}));
  const Value id = json::read(request.id.sent);
  send_(notification_message("notifications/subscriptions/acknowledged",
                             {{"_meta", ArgumentMap{{subscription_key, id}}}, {"notifications", ArgumentMap()}}));
}

void Conversation::enter(const std::shared_ptr<Running>& running) {
  const std::lock_guard lock(mutex_);
  if (!under_way_.emplace(running->id.key, running).second) {
    throw ProtocolError{ErrorCode::invalid_request, "a request with this id is under way"};
  }
}

std::shared_ptr<Running> Conversation::withdrawn(const std::string& key) {
  const std::lock_guard lock(mutex_);
  const auto found = under_way_.find(key);
  if (found == under_way_.end()) {
    return nullptr;
  }
  std::shared_ptr<Running> running = std::move(found->second);
  under_way_.erase(found);
  return running;
}

void Conversation::perform(const std::shared_ptr<Running>& call) {
  std::string message;
  try {
    deadlines_.begin(call);
    message = result_message(call->id, result_of(*call));
  } catch (const std::exception& failure) {
    message = error_message(call->id, {ErrorCode::internal_error, failure.what()}, call->version);
  }
  deadlines_.end(*call);
  finish(*call, std::move(message));
}

std::string Conversation::result_of(const Running& call) const {
  if (call.link->stop().stop_requested()) {
    return refused_call(*core_, "the input ended before this call was made", call.version);
  }
  Call handlers_call = CallerLink::call_of(call.link);
  const ArgumentMap none;
  return call_result(*core_, *call.tool, call.arguments.is_null() ? none : call.arguments.mapping(), call.version,
                     handlers_call);
}

/// Answers a call, unless it was cancelled: then its id may be another's by now.
void Conversation::finish(Running& call, std::string message) {
  call.link->close();
  if (has_withdrawn(call)) {
    call.reply.give(std::move(message));
  } else if (!call.is_late) {
    call.reply.give_nothing();
  }
}

/// Takes a call out of those under way; false when it is none of them any more.
bool Conversation::has_withdrawn(const Running& call) {
  const std::lock_guard lock(mutex_);
  const auto found = under_way_.find(call.id.key);
  if (found == under_way_.end() || found->second.get() != &call) {
    return false;
  }
  under_way_.erase(found);
  return true;
}

/// The answer is given while the call cannot finish: whoever runs it may take what was answered once it has.
void Conversation::expire(Running& call) {
  call.link->close([&] {
    if (has_withdrawn(call)) {
      call.is_late = true;
      const std::string words = std::string(call.tool->spec->name()) + " was cancelled: a call may take at most " +
                                std::to_string(core_->limits().call_time.count()) + " ms";
      call.reply.give(result_message(call.id, refused_call(*core_, words, call.version)));
    }
  });
  if (call.is_late) {
    call.link->request_stop();
  }
}

void Conversation::cancel(const std::string& key) {
  const std::shared_ptr<Running> running = withdrawn(key);
  if (!running || !running->link) {
    return;  // nothing of that id, or a subscription, which is closed by that
  }
  running->link->close();
  running->link->request_stop();
  if (runner_->take_back(*running)) {
    running->reply.give_nothing();
  }
}

void Conversation::end_subscriptions() {
  std::vector<std::shared_ptr<Running>> subscriptions;
  {
    const std::lock_guard lock(mutex_);
    for (auto next = under_way_.begin(); next != under_way_.end();) {
      if (next->second->tool == nullptr) {
        subscriptions.push_back(std::move(next->second));
        next = under_way_.erase(next);
      } else {
        ++next;
      }
    }
  }
  for (const std::shared_ptr<Running>& subscription : subscriptions) {
    subscription->reply.give(result_message(subscription->id, subscription_result(json::read(subscription->id.sent))));
  }
}

void Conversation::cancel_calls() {
  std::vector<std::shared_ptr<Running>> calls;
  {
    const std::lock_guard lock(mutex_);
    for (const auto& [key, running] : under_way_) {
      if (running->link) {
        calls.push_back(running);
      }
    }
  }
  for (const std::shared_ptr<Running>& call : calls) {
    call->link->request_stop();
    if (runner_->take_back(*call)) {
      perform(call);
    }
  }
}

}  // namespace tool_binding::server::detail
