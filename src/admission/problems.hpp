// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tool_binding {

/// What was found wrong with a request: the texts of its problems, joined as its refusal shows them.
class Problems {
 public:
  /// Begins a problem. The caller appends its words to the text that is returned.
  [[nodiscard]] std::string& add() {
    if (joined_.empty()) {
      joined_.reserve(enough_for_most);
    } else {
      joined_.append("; ");
    }
    return joined_;
  }

  [[nodiscard]] bool empty() const noexcept { return joined_.empty(); }
  [[nodiscard]] std::string_view joined() const noexcept { return joined_; }

 private:
  static constexpr std::size_t enough_for_most = 400;

  std::string joined_;
};

}  // namespace tool_binding
