// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <thread>

namespace tool_binding::server::detail {

struct Running;

/// Ends calls that run for longer than they may, from a thread of its own, which begins with the first call. The last
/// owner of a conversation may be the call that is ended: then this is destroyed by that thread.
class Deadlines {
 public:
  /// With a time of 0 nothing is ever late.
  explicit Deadlines(std::chrono::milliseconds time);
  ~Deadlines();
  Deadlines(const Deadlines&) = delete;
  Deadlines& operator=(const Deadlines&) = delete;

  void begin(const std::shared_ptr<Running>& call);
  void end(const Running& call);

 private:
  struct Watched;
  static void watch(const std::shared_ptr<Watched>& watched);

  const std::chrono::milliseconds time_;
  const std::shared_ptr<Watched> watched_;  ///< the thread's too
  std::thread thread_;
};

}  // namespace tool_binding::server::detail
