// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string_view>
#include <utility>

#include "tool_binding/server/server.hpp"
#include "versions.hpp"

namespace tool_binding::server::detail {

/// The level of that name, none for any other word.
[[nodiscard]] std::optional<LogLevel> level_named(std::string_view name) noexcept;

/// What a call's caller asked for beside the answer, and the way there.
struct Wishes {
  Value progress_token = {};                     ///< null where no progress is wanted
  const std::atomic<LogLevel>* level = nullptr;  ///< the session's, as it is at each message
  std::optional<LogLevel> own_level = {};        ///< the call's own, where there is no session's
  const Version* version = nullptr;
};

/// The way from a call to its caller, open until the call ends or is cancelled.
class CallerLink {
 public:
  CallerLink(Wishes wishes, const Limits& limits, const Session::Send& send)
      : wishes_(std::move(wishes)),
        wants_progress_(!wishes_.progress_token.is_null() && send),
        limits_(limits),
        send_(send) {}

  [[nodiscard]] static Call call_of(std::shared_ptr<CallerLink> link) { return Call(std::move(link)); }

  [[nodiscard]] const std::stop_source& stop() const noexcept { return stop_; }
  [[nodiscard]] bool wants_progress() const noexcept { return wants_progress_; }

  void progress(double done, std::optional<double> total, std::string_view message);
  void log(LogLevel level, const Value& data, std::string_view logger);

  /// From here on nothing reaches the caller.
  void close();
  /// The same for one that is open, and then `last`, for which others that close it wait.
  void close(const std::function<void()>& last);
  /// Tells the handler. Not to be called with a lock that a stop callback of the handler's might want.
  void request_stop() { stop_.request_stop(); }

 private:
  [[nodiscard]] bool is_due(double done, std::optional<double> total);
  [[nodiscard]] bool is_wanted(LogLevel level) const noexcept;

  const Wishes wishes_;
  const bool wants_progress_;
  const Limits& limits_;       ///< not to be used once the link is closed, no more than
  const Session::Send& send_;  ///< this: a handler may keep its call for longer than its server lives
  std::stop_source stop_;
  std::mutex mutex_;
  bool is_closed_ = false;
  std::optional<double> done_;
  std::chrono::steady_clock::time_point last_progress_;
  std::size_t logs_ = 0;
};

}  // namespace tool_binding::server::detail
