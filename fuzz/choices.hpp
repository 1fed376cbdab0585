// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// What a fuzzer is made of: choices taken from the bytes it is given, and invariants that end the program.
namespace tool_binding::fuzz {

/// Hands out the bytes of one input as choices. Once they are used up, every choice is the first one.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) noexcept : rest_(data, size) {}

  [[nodiscard]] bool empty() const noexcept { return rest_.empty(); }

  std::uint8_t byte() noexcept {
    if (rest_.empty()) {
      return 0;
    }
    const std::uint8_t first = rest_.front();
    rest_ = rest_.subspan(1);
    return first;
  }

  /// A number below `count`, which is at most 256.
  std::size_t below(std::size_t count) noexcept { return byte() % count; }
  bool flag() noexcept { return below(2) == 1; }

  template <class Rows>
  const auto& one_of(const Rows& rows) noexcept {
    return rows[below(std::size(rows))];
  }

  /// At most `longest` bytes, as they stand in the input.
  std::string_view bytes(std::size_t longest) noexcept {
    const std::size_t size = std::min({below(256), longest, rest_.size()});
    return taken(size);
  }
  std::string_view all_bytes() noexcept { return taken(rest_.size()); }

 private:
  std::string_view taken(std::size_t size) noexcept {
    const std::string_view view(reinterpret_cast<const char*>(rest_.data()), size);
    rest_ = rest_.subspan(size);
    return view;
  }

  std::span<const std::uint8_t> rest_;
};

/// Ends the program, and so the fuzzer with this input, unless an invariant holds.
void require(bool holds, const char* invariant, std::string_view details = {});

}  // namespace tool_binding::fuzz
