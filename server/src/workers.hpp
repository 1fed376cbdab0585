// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "conversation.hpp"

namespace tool_binding::server::detail {

/// Runs calls in the thread that reads them.
class InlineRunner : public Runner {
 public:
  void run(Conversation& conversation, std::shared_ptr<Running> call) override;
  [[nodiscard]] bool take_back(const Running& call) override;
};

/// Runs calls on a fixed number of threads, the first that came first. Must be owned by a shared pointer: threads of
/// calls that do not end keep it.
class Workers : public Runner, public std::enable_shared_from_this<Workers> {
 public:
  /// To be called once.
  void start(std::size_t count);

  void run(Conversation& conversation, std::shared_ptr<Running> call) override;
  [[nodiscard]] bool take_back(const Running& call) override;

  /// Waits until no call runs or waits; false when the time is over before.
  bool wait(std::chrono::milliseconds time);

  /// Ends the threads. Those whose calls do not end are left to themselves; returns their number. Precondition: no
  /// call waits.
  std::size_t stop();

 private:
  struct Waiting {
    std::shared_ptr<Conversation> conversation;
    std::shared_ptr<Running> call;
  };
  void work(std::size_t worker);
  [[nodiscard]] bool is_idle() const { return waiting_.empty() && running_ == 0; }

  std::mutex mutex_;
  std::condition_variable something_waits_;
  std::condition_variable nothing_runs_;
  std::deque<Waiting> waiting_;
  std::vector<bool> is_running_;  ///< one for each thread
  std::size_t running_ = 0;
  bool is_stopping_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace tool_binding::server::detail
