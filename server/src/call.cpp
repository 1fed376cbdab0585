// SPDX-License-Identifier: MIT
#include "tool_binding/server/call.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "caller_link.hpp"
#include "json_rpc.hpp"

namespace tool_binding::server {

std::stop_token Call::stop_token() const noexcept { return link_ ? link_->stop().get_token() : std::stop_token(); }

bool Call::wants_progress() const noexcept { return link_ && link_->wants_progress(); }

void Call::progress(double done, std::optional<double> total, std::string_view message) {
  if (wants_progress()) {
    link_->progress(done, total, message);
  }
}

void Call::log(LogLevel level, const Value& data, std::string_view logger) {
  if (link_) {
    link_->log(level, data, logger);
  }
}

namespace detail {

namespace {

constexpr std::array<std::string_view, 8> level_names = {"debug", "info",     "notice", "warning",
                                                         "error", "critical", "alert",  "emergency"};

std::string_view name_of(LogLevel level) noexcept { return level_names[static_cast<std::size_t>(level)]; }

std::string log_message(LogLevel level, const Value& data, std::string_view logger) {
  ArgumentMap params = {{"level", name_of(level)}};
  if (!logger.empty()) {
    params.append("logger", logger);
  }
  params.append("data", data);
  return notification_message("notifications/message", params);
}

}  // namespace

std::optional<LogLevel> level_named(std::string_view name) noexcept {
  const auto* const found = std::find(level_names.begin(), level_names.end(), name);
  return found == level_names.end() ? std::nullopt : std::optional(static_cast<LogLevel>(found - level_names.begin()));
}

void CallerLink::close() {
  const std::lock_guard lock(mutex_);
  is_closed_ = true;
}

void CallerLink::close(const std::function<void()>& last) {
  const std::lock_guard lock(mutex_);
  if (!is_closed_) {
    is_closed_ = true;
    last();
  }
}

void CallerLink::progress(double done, std::optional<double> total, std::string_view message) {
  const std::lock_guard lock(mutex_);  // held while it is sent, so that none comes after the answer
  if (is_closed_ || !is_due(done, total)) {
    return;
  }
  ArgumentMap params = {{"progressToken", wishes_.progress_token}, {"progress", done}};
  if (total && std::isfinite(*total)) {
    params.append("total", *total);
  }
  if (wishes_.version->has_progress_words && !message.empty()) {
    params.append("message", message);
  }
  send_(notification_message("notifications/progress", params));
}

bool CallerLink::is_due(double done, std::optional<double> total) {
  const auto now = std::chrono::steady_clock::now();
  const bool is_rising = std::isfinite(done) && (!done_ || done > *done_);
  const bool is_last = total && done >= *total;
  if (!is_rising || (done_ && !is_last && now - last_progress_ < limits_.progress_interval)) {
    return false;
  }
  done_ = done;
  last_progress_ = now;
  return true;
}

bool CallerLink::is_wanted(LogLevel level) const noexcept {
  return wishes_.level != nullptr ? level >= wishes_.level->load() : wishes_.own_level && level >= *wishes_.own_level;
}

void CallerLink::log(LogLevel level, const Value& data, std::string_view logger) {
  const std::lock_guard lock(mutex_);
  if (is_closed_ || !send_ || !is_wanted(level) || logs_ > limits_.logs) {
    return;
  }
  send_(++logs_ > limits_.logs ? log_message(LogLevel::warning, "this call's further messages are left out", {})
                               : log_message(level, data, logger));
}

}  // namespace detail

}  // namespace tool_binding::server
