// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "tool_binding/detail/cell.hpp"

#pragma GCC visibility push(default)

namespace tool_binding {

class Text;

namespace detail {
[[nodiscard]] const Cell& cell_of(const Text& text) noexcept;
}  // namespace detail

/// An immutable text of 16 bytes that is copied without copying its content.
///
/// A text is a sequence of Unicode code points held as UTF-8. Any bytes are accepted and travel unchanged: a lone
/// surrogate stands in its three-byte form, and a byte that is not part of well-formed text counts as the lone
/// surrogate U+DC00 + byte wherever code points are asked for. Texts of up to 15 bytes stand in the object itself,
/// longer ones in a shared node. Equality and order are those of the bytes.
class Text {
 public:
  /// The empty text.
  Text() noexcept : cell_(detail::Tag::empty_text) {}

  /// Copies `bytes`. Throws std::bad_alloc when they are more than 15 and no memory is left.
  template <class Bytes>
  // NOLINTNEXTLINE(google-explicit-constructor)
  requires std::convertible_to<const Bytes&, std::string_view> &&(!std::same_as<Bytes, Text>)Text(const Bytes& bytes)
      : cell_(std::string_view(bytes)) {}

  Text(const Text&) noexcept = default;
  Text(const Text& other, detail::WithoutNodes known) noexcept : cell_(other.cell_, known) {}
  Text(Text&& other) noexcept : cell_(other.cell_, detail::Tag::empty_text) {}
  Text& operator=(Text other) noexcept {
    cell_.swap(other.cell_);
    return *this;
  }
  ~Text() = default;

  /// The bytes, valid as long as this object is neither changed, moved nor destroyed.
  [[nodiscard]] std::string_view view() const noexcept { return cell_.text(); }
  operator std::string_view() const noexcept { return view(); }  // NOLINT(google-explicit-constructor)

  /// The bytes, followed by a zero byte. Lives as long as `view()`.
  [[nodiscard]] const char* c_str() const noexcept { return view().data(); }

  /// The size in bytes.
  [[nodiscard]] std::size_t size() const noexcept { return view().size(); }
  [[nodiscard]] bool empty() const noexcept { return cell_.tag() == detail::Tag::empty_text; }

  friend bool operator==(const Text& left, const Text& right) noexcept {
    return detail::same_text(left.cell_, right.cell_);
  }
  friend std::strong_ordering operator<=>(const Text& left, const Text& right) noexcept {
    return left.view() <=> right.view();
  }
  template <class Bytes>
  requires std::convertible_to<const Bytes&, std::string_view> &&(!std::same_as<Bytes, Text>)friend bool operator==(
      const Text& left, const Bytes& right) noexcept {
    return left.view() == std::string_view(right);
  }

 private:
  friend class Value;
  friend const detail::Cell& detail::cell_of(const Text& text) noexcept;
  explicit Text(const detail::Cell& cell) noexcept : cell_(cell) {}

  detail::Cell cell_;
};

static_assert(sizeof(Text) == 16);

inline const detail::Cell& detail::cell_of(const Text& text) noexcept { return text.cell_; }

}  // namespace tool_binding

#pragma GCC visibility pop
