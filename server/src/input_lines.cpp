// SPDX-License-Identifier: MIT
#include "input_lines.hpp"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tool_binding::server::detail {

namespace {
constexpr std::size_t read_at_once = 64UL * 1024;
}

InputLines::Kind InputLines::next() {
  for (;;) {
    const std::string_view unsearched(bytes_.data() + searched_, end_ - searched_);
    if (const std::size_t line_feed = unsearched.find('\n'); line_feed != std::string_view::npos) {
      return found(searched_ + line_feed);
    }
    searched_ = end_;
    if (end_ - begin_ > most_bytes_) {
      passes_over_ = true;
      begin_ = end_;
    }
    if (!read_more()) {
      return begin_ == end_ && !passes_over_ ? Kind::none : found(end_);
    }
  }
}

InputLines::Kind InputLines::found(std::size_t end) {
  line_ = std::string_view(bytes_.data() + begin_, end - begin_);
  const bool is_too_long = std::exchange(passes_over_, false) || line_.size() > most_bytes_;
  begin_ = searched_ = std::min(end + 1, end_);
  return is_too_long ? Kind::too_long : Kind::whole;
}

/// Moves what is left to the front, and reads what is there; false at the end.
bool InputLines::read_more() {
  bytes_.erase(0, begin_);
  searched_ -= begin_;
  end_ -= begin_;
  begin_ = 0;
  bytes_.resize(end_ + read_at_once);
  for (;;) {
    const ssize_t count = read(descriptor_, bytes_.data() + end_, read_at_once);
    if (count >= 0) {
      end_ += static_cast<std::size_t>(count);
      return count > 0;
    }
    if (errno == EAGAIN) {
      pollfd readable = {descriptor_, POLLIN, 0};
      poll(&readable, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
}

}  // namespace tool_binding::server::detail
