// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool_binding::cli {

/// Standard output, with a buffer that is appended to directly.
class Output {
 public:
  /// What is still to be written.
  [[nodiscard]] std::string& text() noexcept { return text_; }

  /// Whether so much has gathered that writing it is due.
  [[nodiscard]] bool is_large() const noexcept;

  /// Writes all of it. False when nobody reads any more: a closed pipe is the reader's right, no failure.
  /// Throws std::system_error for a failure.
  [[nodiscard]] bool flush();

 private:
  std::string text_;
};

}  // namespace tool_binding::cli
