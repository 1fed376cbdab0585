// SPDX-License-Identifier: MIT
#include "workers.hpp"

#include <algorithm>
#include <utility>

namespace tool_binding::server::detail {

void InlineRunner::run(Conversation& conversation, std::shared_ptr<Running> call) { conversation.perform(call); }

bool InlineRunner::take_back(const Running& /*call*/) { return false; }

void Workers::start(std::size_t count) {
  is_running_.resize(count);
  threads_.reserve(count);
  try {
    for (std::size_t worker = 0; worker < count; ++worker) {
      threads_.emplace_back([self = shared_from_this(), worker] { self->work(worker); });
    }
  } catch (...) {
    stop();
    throw;
  }
}

void Workers::run(Conversation& conversation, std::shared_ptr<Running> call) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back({conversation.shared_from_this(), std::move(call)});
  }
  something_waits_.notify_one();
}

bool Workers::take_back(const Running& call) {
  Waiting taken;  // destroyed without the lock
  const std::lock_guard lock(mutex_);
  const auto found = std::find_if(waiting_.begin(), waiting_.end(),
                                  [&](const Waiting& waiting) { return waiting.call.get() == &call; });
  if (found == waiting_.end()) {
    return false;
  }
  taken = std::move(*found);
  waiting_.erase(found);
  return true;
}

bool Workers::wait(std::chrono::milliseconds time) {
  std::unique_lock lock(mutex_);
  return nothing_runs_.wait_for(lock, time, [&] { return is_idle(); });
}

std::size_t Workers::stop() {
  std::unique_lock lock(mutex_);
  is_stopping_ = true;
  const std::vector<bool> is_left = is_running_;
  lock.unlock();
  something_waits_.notify_all();
  for (std::size_t worker = 0; worker < threads_.size(); ++worker) {
    if (is_left[worker]) {
      threads_[worker].detach();
    } else {
      threads_[worker].join();
    }
  }
  threads_.clear();
  return static_cast<std::size_t>(std::count(is_left.begin(), is_left.end(), true));
}

void Workers::work(std::size_t worker) {
  std::unique_lock lock(mutex_);
  for (;;) {
    something_waits_.wait(lock, [&] { return is_stopping_ || !waiting_.empty(); });
    if (waiting_.empty()) {
      return;
    }
    Waiting next = std::move(waiting_.front());
    waiting_.pop_front();
    is_running_[worker] = true;
    ++running_;
    lock.unlock();
    next.conversation->perform(next.call);
    next = {};
    lock.lock();
    is_running_[worker] = false;
    --running_;
    if (is_idle()) {
      nothing_runs_.notify_all();
    }
  }
}

}  // namespace tool_binding::server::detail
