// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>

#include "tool_binding/detail/cell.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"

namespace tool_binding {

class Text;

namespace detail {
[[nodiscard]] TOOL_BINDING_API const Cell& cell_of(const Text& text) noexcept;

/// Whatever is read as a text, but for a Text itself.
template <class Bytes>
concept TextLike = !std::same_as<Bytes, Text> && std::convertible_to<const Bytes&, std::string_view>;
}  // namespace detail

/// An immutable text of 16 bytes that is copied without copying its content.
///
/// A text is a sequence of Unicode code points held as UTF-8. Any bytes are accepted and travel unchanged: a lone
/// surrogate has its three-byte form, and a byte that is not part of well-formed text counts as the lone
/// surrogate U+DC00 + byte wherever code points are asked for. Texts of up to 15 bytes are held in the object itself,
/// longer ones in a shared node. Equality and order are those of the bytes. A text that is moved from is empty.
class TOOL_BINDING_API Text {
 public:
  /// The empty text.
  Text() noexcept : cell_(detail::Tag::empty_text) {}

  /// Copies `bytes`. Throws std::bad_alloc when they are more than 15 and no memory is left.
  template <detail::TextLike Bytes>
  Text(const Bytes& bytes) : cell_(std::string_view(bytes)) {}  // NOLINT(google-explicit-constructor)

  Text(const Text&) noexcept = default;
  Text(const Text& other, detail::WithoutNodes known) noexcept : cell_(other.cell_, known) {}
  Text(Text&& other) noexcept : cell_(other.cell_, detail::Tag::empty_text) {}
  Text& operator=(Text other) noexcept {
    cell_.swap(other.cell_);
    return *this;
  }
  ~Text() = default;

  /// The bytes, valid as long as this object is neither changed, moved nor destroyed.
  [[nodiscard]] std::string_view view() const noexcept TOOL_BINDING_LIFETIMEBOUND { return cell_.text(); }
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const noexcept TOOL_BINDING_LIFETIMEBOUND { return view(); }

  /// The bytes, followed by a zero byte. Live as long as `view()`.
  [[nodiscard]] const char* c_str() const noexcept TOOL_BINDING_LIFETIMEBOUND { return view().data(); }

  /// The size in bytes.
  [[nodiscard]] std::size_t size() const noexcept { return view().size(); }
  [[nodiscard]] bool empty() const noexcept { return cell_.tag() == detail::Tag::empty_text; }

  friend bool operator==(const Text& left, const Text& right) noexcept {
    return detail::same_text(left.cell_, right.cell_);
  }
  friend std::strong_ordering operator<=>(const Text& left, const Text& right) noexcept {
    return left.view() <=> right.view();
  }
  template <detail::TextLike Bytes>
  friend bool operator==(const Text& left, const Bytes& right) noexcept {
    return left.view() == std::string_view(right);
  }
  template <detail::TextLike Bytes>
  friend std::strong_ordering operator<=>(const Text& left, const Bytes& right) noexcept {
    return left.view() <=> std::string_view(right);
  }

  /// The bytes of both, one after the other.
  friend std::string operator+(const Text& left, const Text& right) { return std::string(left) + right; }
  friend std::string operator+(std::string left, const Text& right) {
    left.append(right.view());
    return left;
  }
  template <detail::TextLike Bytes>
  friend std::string operator+(const Bytes& left, const Text& right) {
    return std::string(std::string_view(left)) + right;
  }
  template <detail::TextLike Bytes>
  friend std::string operator+(const Text& left, const Bytes& right) {
    return std::string(left).append(std::string_view(right));
  }

  /// Writes the bytes as they are.
  friend TOOL_BINDING_API std::ostream& operator<<(std::ostream& out, const Text& text);

 private:
  friend class Value;
  friend const detail::Cell& detail::cell_of(const Text& text) noexcept;
  explicit Text(const detail::Cell& cell) noexcept : cell_(cell) {}

  detail::Cell cell_;
};

static_assert(sizeof(Text) == 16);

inline const detail::Cell& detail::cell_of(const Text& text) noexcept { return text.cell_; }

}  // namespace tool_binding

namespace std {

/// The hash of the bytes, consistent with equality to any other kind of text.
template <>
struct hash<tool_binding::Text> {
  [[nodiscard]] std::size_t operator()(const tool_binding::Text& text) const noexcept {
    return std::hash<std::string_view>{}(text.view());
  }
};

}  // namespace std
