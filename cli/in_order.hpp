// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "blocks.hpp"

namespace tool_binding::cli {

/// Works on the blocks of an input in several threads, and takes the results in the order of the blocks.
///
/// A thread that has a block reads the next one as soon as its own is done; whoever finishes the oldest block takes its
/// result, and those that were done before it. At most two blocks and results for each thread are held, so that memory
/// is bounded whatever the length of the input. One thread waits for input at a time; the results of what came before
/// are taken meanwhile.
template <class Result>
class InOrder {
 public:
  /// Takes what a result holds so far and empties it; false to end the run. Called by one thread at a time.
  using Take = std::function<bool(Result& result)>;
  /// Takes what is in the result now, once all before it is taken: for work whose result could grow without bounds.
  using Flush = std::function<void()>;
  /// Makes a result of a block, which is empty before.
  using Work = std::function<void(const Block& block, Result& result, const Flush& flush)>;

  InOrder(InputBlocks input, Take take) : input_(std::move(input)), take_(std::move(take)) {}

  /// Runs until the input has ended or `take` says so. `make_work` is called once for each thread, in this one. Throws
  /// what the work or the taking threw, and what the input threw once the results of all that came before are taken.
  void run(std::size_t jobs, const std::function<Work()>& make_work) {
    slots_ = std::vector<Slot>(jobs == 1 ? 1 : 2 * jobs);
    std::vector<std::jthread> others;
    if (jobs > 1) {
      input_.make_stoppable();
    }
    try {
      while (others.size() + 1 < jobs) {
        others.emplace_back([this, work = make_work()] { repeat(work); });
      }
    } catch (const std::system_error&) {
      // As many as the system allows: the answers are the same.
    }
    repeat(make_work());
    others.clear();
    if (failure_) {
      std::rethrow_exception(failure_);
    }
  }

 private:
  enum class State : unsigned char { free, begun, done };

  struct Slot {
    Block block;
    Result result;
    std::size_t turn = 0;
    State state = State::free;
  };

  void repeat(const Work& work) {
    try {
      while (Slot* const slot = next_slot()) {
        work(slot->block, slot->result, [&] { flush(*slot); });
        finish(*slot);
      }
    } catch (...) {
      fail(std::current_exception(), true);
    }
  }

  /// The slot of the next block, filled; null when there is none.
  Slot* next_slot() {
    const std::unique_lock reading(reading_);
    Slot& slot = slots_[begun_ % slots_.size()];
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [&] { return is_stopped_ || slot.state == State::free; });
      if (is_stopped_ || has_ended_) {
        return nullptr;
      }
    }
    try {
      has_ended_ = !input_.next(slot.block);
    } catch (...) {
      has_ended_ = true;
      fail(std::current_exception(), false);
    }
    if (has_ended_) {
      return nullptr;
    }
    const std::unique_lock lock(mutex_);
    slot.turn = begun_++;
    slot.state = State::begun;
    return &slot;
  }

  void finish(Slot& slot) {
    std::unique_lock lock(mutex_);
    slot.state = State::done;
    if (is_taking_) {
      return;
    }
    while (!is_stopped_ && slots_[taken_ % slots_.size()].state == State::done) {
      Slot& oldest = slots_[taken_ % slots_.size()];
      take(lock, oldest);
      oldest.state = State::free;
      ++taken_;
      changed_.notify_all();
    }
  }

  void flush(Slot& slot) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return is_stopped_ || (taken_ == slot.turn && !is_taking_); });
    if (!is_stopped_) {
      take(lock, slot);
    }
  }

  /// Takes the result of the oldest block, without the lock.
  void take(std::unique_lock<std::mutex>& lock, Slot& slot) {
    is_taking_ = true;
    lock.unlock();
    const bool goes_on = take_(slot.result);
    lock.lock();
    is_taking_ = false;
    if (!goes_on) {
      stop();
    }
  }

  /// Precondition: the mutex is held.
  void stop() {
    is_stopped_ = true;
    input_.stop();
    changed_.notify_all();
  }

  void fail(std::exception_ptr failure, bool at_once) {
    const std::unique_lock lock(mutex_);
    if (!failure_) {
      failure_ = std::move(failure);
    }
    if (at_once) {
      stop();
    }
  }

  InputBlocks input_;
  Take take_;
  std::vector<Slot> slots_;
  std::mutex reading_;  ///< held by the thread that reads; always before the other
  bool has_ended_ = false;
  std::mutex mutex_;  ///< held for what follows, and for the states of the slots
  std::condition_variable changed_;
  std::size_t begun_ = 0;  ///< changed by the thread that reads
  std::size_t taken_ = 0;
  bool is_taking_ = false;
  bool is_stopped_ = false;
  std::exception_ptr failure_;
};

}  // namespace tool_binding::cli
