// SPDX-License-Identifier: MIT
#include "input.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <iterator>
#include <system_error>
#include <utility>

#include "tool_binding/detail/assert.hpp"

namespace tool_binding::cli {

namespace {

constexpr int none = -1;

std::string name_of(const std::string& path) { return path == standard_input ? "standard input" : path; }

[[noreturn]] void fail(const std::string& path) {
  throw std::system_error(errno, std::generic_category(), "cannot read " + name_of(path));
}

/// Waits until `descriptor` can be read without waiting, or has ended; false when `stop` was raised before.
bool wait_for_input(int descriptor, const StopSignal& stop) {
  pollfd events[] = {{stop.descriptor(), POLLIN, 0}, {descriptor, POLLIN, 0}};
  while (poll(events, std::size(events), -1) < 0) {
    if (errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "cannot wait for input");
    }
  }
  return events[0].revents == 0;
}

}  // namespace

StopSignal::StopSignal() : descriptor_(eventfd(0, EFD_CLOEXEC)) {
  if (descriptor_ == none) {
    throw std::system_error(errno, std::generic_category(), "cannot make an event");
  }
}

StopSignal::~StopSignal() { close(descriptor_); }

void StopSignal::raise() const noexcept { static_cast<void>(eventfd_write(descriptor_, 1)); }

Input::Input(const std::string& path)
    : path_(path), descriptor_(path == standard_input ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor_ == none) {
    fail(path_);
  }
}

Input::Input(Input&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, none)) {}

Input::~Input() {
  if (descriptor_ != none && descriptor_ != STDIN_FILENO) {
    close(descriptor_);
  }
}

std::size_t Input::read(std::span<char> room, const StopSignal* stop) {
  TOOL_BINDING_ASSERT(!room.empty());
  if (stop != nullptr && !wait_for_input(descriptor_, *stop)) {
    return 0;
  }
  ssize_t count = 0;
  do {
    count = ::read(descriptor_, room.data(), room.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    fail(path_);
  }
  return static_cast<std::size_t>(count);
}

Written Input::last_written() const {
  struct stat state = {};
  if (fstat(descriptor_, &state) != 0) {
    fail(path_);
  }
  return S_ISREG(state.st_mode) ? Written{state.st_size, state.st_mtim.tv_sec, state.st_mtim.tv_nsec} : Written{};
}

std::string read_file(const std::string& path) {
  constexpr std::size_t step = std::size_t{64} * 1024;
  Input input(path);
  const Written written = input.last_written();
  std::string content;
  std::size_t filled = 0;
  std::size_t count = 0;
  do {
    content.resize(filled + step);
    count = input.read({content.data() + filled, step});
    filled += count;
  } while (count != 0);
  content.resize(filled);
  if (input.last_written() != written) {
    throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again),
                            name_of(path) + " was written to while it was read");
  }
  return content;
}

}  // namespace tool_binding::cli
