// SPDX-License-Identifier: MIT
#include "deadlines.hpp"

#include <condition_variable>
#include <deque>
#include <mutex>

#include "conversation.hpp"

namespace tool_binding::server::detail {

struct Deadlines::Watched {
  struct Deadline {
    std::chrono::steady_clock::time_point due;
    std::weak_ptr<Running> call;
    const Running* place;
  };

  std::mutex mutex;
  std::condition_variable something_begins;
  std::deque<Deadline> deadlines;  ///< the earliest first: all calls have the same time
  bool is_waiting_for_a_call = false;
  bool is_over = false;
};

Deadlines::Deadlines(std::chrono::milliseconds time) : time_(time), watched_(std::make_shared<Watched>()) {}

Deadlines::~Deadlines() {
  {
    const std::lock_guard lock(watched_->mutex);
    watched_->is_over = true;
  }
  watched_->something_begins.notify_one();
  if (thread_.get_id() == std::this_thread::get_id()) {
    thread_.detach();
  } else if (thread_.joinable()) {
    thread_.join();
  }
}

void Deadlines::begin(const std::shared_ptr<Running>& call) {
  if (time_ == std::chrono::milliseconds(0)) {
    return;
  }
  const std::lock_guard lock(watched_->mutex);
  if (!thread_.joinable()) {
    thread_ = std::thread(watch, watched_);
  }
  watched_->deadlines.push_back({std::chrono::steady_clock::now() + time_, call, call.get()});
  if (watched_->is_waiting_for_a_call) {
    watched_->something_begins.notify_one();
  }
}

void Deadlines::end(const Running& call) {
  if (time_ != std::chrono::milliseconds(0)) {
    const std::lock_guard lock(watched_->mutex);
    std::erase_if(watched_->deadlines, [&](const Watched::Deadline& deadline) { return deadline.place == &call; });
  }
}

void Deadlines::watch(const std::shared_ptr<Watched>& watched) {
  std::unique_lock lock(watched->mutex);
  while (!watched->is_over) {
    if (watched->deadlines.empty()) {
      watched->is_waiting_for_a_call = true;
      watched->something_begins.wait(lock);
      watched->is_waiting_for_a_call = false;
    } else if (const auto due = watched->deadlines.front().due; std::chrono::steady_clock::now() < due) {
      watched->something_begins.wait_until(lock, due);
    } else {
      std::shared_ptr<Running> late = watched->deadlines.front().call.lock();
      watched->deadlines.pop_front();
      lock.unlock();
      if (late) {
        late->share.conversation().expire(*late);
        late.reset();
      }
      lock.lock();
    }
  }
}

}  // namespace tool_binding::server::detail
