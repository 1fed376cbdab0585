// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string_view>
#include <utility>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::server {

/// How grave a message of the log is (RFC 5424), the least first.
enum class LogLevel : std::uint8_t { debug, info, notice, warning, error, critical, alert, emergency };

namespace detail {
class CallerLink;
}

/// One call as its handler sees it. A handler that wants it lists it as a context item of a name of its own choice,
/// `item<Call>("call")`; one that takes any keyword, or lists no types, gets it under the name "call".
///
/// Lives for the call. May be used from any number of threads at once. What is said here reaches the caller before the
/// answer; what is said once the call has ended, or was cancelled, reaches nobody.
class TOOL_BINDING_API Call {
 public:
  /// A call that nobody listens to, and nobody cancels: for tests of handlers.
  Call() = default;

  /// Requested when the caller cancels the call, when it has run for `Limits::call_time`, and when the input has ended
  /// and there is no more time. To wait with it, use std::condition_variable_any or std::stop_callback.
  [[nodiscard]] std::stop_token stop_token() const noexcept;
  [[nodiscard]] bool is_cancelled() const noexcept { return stop_token().stop_requested(); }

  /// Whether the caller asked for progress.
  [[nodiscard]] bool wants_progress() const noexcept;

  /// Says how much is done, in a unit of the handler's choice, of how much in all where that is known. Does nothing
  /// when nobody asked, when `done` is no more than it was, and when the last message is younger than
  /// `Limits::progress_interval`, unless all is done.
  void progress(double done, std::optional<double> total = {}, std::string_view message = {});

  /// Writes to the caller's log: `data` is mostly a text, and `logger` names the part that writes. Only what is as
  /// grave as the caller wants to know is sent, and at most `Limits::logs` messages of one call. Neither secrets nor
  /// personal data belong there.
  void log(LogLevel level, const Value& data, std::string_view logger = {});

 private:
  friend class detail::CallerLink;
  explicit Call(std::shared_ptr<detail::CallerLink> link) noexcept : link_(std::move(link)) {}

  std::shared_ptr<detail::CallerLink> link_;
};

}  // namespace tool_binding::server
