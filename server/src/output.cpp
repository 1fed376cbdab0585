// SPDX-License-Identifier: MIT
#include "output.hpp"

#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <ctime>

namespace tool_binding::server::detail {

namespace {

/// Keeps the signal that a pipe without a reader sends from ending the process, in this thread and for this while.
class NoBrokenPipe {
 public:
  NoBrokenPipe() noexcept {
    sigset_t pending;
    sigpending(&pending);
    was_pending_ = sigismember(&pending, SIGPIPE) == 1;
    sigemptyset(&broken_pipe_);
    sigaddset(&broken_pipe_, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &broken_pipe_, &mask_);
  }
  NoBrokenPipe(const NoBrokenPipe&) = delete;
  NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;
  ~NoBrokenPipe() {
    const timespec at_once = {};
    while (!was_pending_ && sigtimedwait(&broken_pipe_, nullptr, &at_once) == -1 && errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &mask_, nullptr);
  }

 private:
  bool was_pending_;
  sigset_t broken_pipe_;
  sigset_t mask_;
};

constexpr std::size_t most_kept_bytes = 1024UL * 1024;

}  // namespace

void Output::write(const std::string& message) {
  const std::lock_guard lock(mutex_);
  if (!is_open()) {
    return;
  }
  line_.assign(message).append("\n");
  if (!write_all(line_)) {
    close();
  }
  if (line_.capacity() > most_kept_bytes) {
    line_ = std::string();
  }
}

bool Output::write_all(const std::string& line) const {
  const NoBrokenPipe guard;
  for (std::size_t written = 0; written < line.size();) {
    const ssize_t count = ::write(descriptor_, line.data() + written, line.size() - written);
    if (count >= 0) {
      written += static_cast<std::size_t>(count);
    } else if (errno == EAGAIN) {
      pollfd writable = {descriptor_, POLLOUT, 0};
      poll(&writable, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

}  // namespace tool_binding::server::detail
