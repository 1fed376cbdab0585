// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/export.hpp"

/// The 16 bytes under `Text`, `Integer` and `Value`, and the shared nodes that hold larger contents.
///
/// A cell is either complete in itself or the owner of one reference to an immutable node with an atomic count. Its
/// last byte, the tag, says which. Copying a cell copies 16 bytes and, for a node, counts; content is never copied.
/// Nothing here is for a daemon's own use.
namespace tool_binding::detail {

/// What a cell holds; a node where the highest bit is set. The tags 0 to 15 are texts held in the cell: the tag
/// is 15 less the text's bytes, so that the longest one ends in a zero byte of its own and every text is
/// zero-terminated.
enum class Tag : std::uint8_t {
  empty_text = 15,
  null = 16,
  boolean,
  integer,
  floating,
  text_node = 0x80 + 24,
  integer_node,
  list_node,
  mapping_node,
  context_node,
};

inline constexpr std::size_t inline_text_size = 15;

/// Whether the process certainly has no other thread, which could be counting references at the same time.
[[nodiscard]] inline bool is_only_thread() noexcept {
#if __has_include(<sys/single_threaded.h>)
  return __libc_single_threaded != 0;
#else
  return false;
#endif
}

/// The head of every node. The count is the number of cells that refer to the node, and is read and written atomically:
/// by the compiler's own functions, because the header of std::atomic takes far longer to compile than this one.
struct Node {
  std::size_t count = 1;

  void add_reference() noexcept {
    if (is_only_thread()) {
      __atomic_store_n(&count, __atomic_load_n(&count, __ATOMIC_RELAXED) + 1, __ATOMIC_RELAXED);
    } else {
      __atomic_fetch_add(&count, 1, __ATOMIC_RELAXED);
    }
  }

  /// Returns whether that was the last one.
  [[nodiscard]] bool drop_reference() noexcept {
    if (!is_shared()) {
      return true;
    }
    if (is_only_thread()) {
      __atomic_store_n(&count, __atomic_load_n(&count, __ATOMIC_RELAXED) - 1, __ATOMIC_RELAXED);
      return false;
    }
    return __atomic_fetch_sub(&count, 1, __ATOMIC_ACQ_REL) == 1;
  }

  /// Whether another cell refers to the node: if none does, its content can be moved.
  [[nodiscard]] bool is_shared() const noexcept { return __atomic_load_n(&count, __ATOMIC_ACQUIRE) != 1; }
};

/// A long text, or the canonical decimal digits of an integer beyond 64 bits: the bytes and a zero follow the head.
struct TextNode : Node {
  std::size_t size;

  explicit TextNode(std::size_t bytes) noexcept : size(bytes) {}
  [[nodiscard]] const char* data() const noexcept { return reinterpret_cast<const char*>(this + 1); }
  [[nodiscard]] char* data() noexcept { return reinterpret_cast<char*>(this + 1); }
};

/// A node of `size` bytes with its closing zero, count 1; the bytes are the caller's to fill before it is shared.
[[nodiscard]] TOOL_BINDING_API TextNode* new_text_node(std::size_t size);
[[nodiscard]] TOOL_BINDING_API TextNode* new_text_node(std::string_view text);

/// The destruction of nodes, which reaches into lists and mappings.
struct NodeAccess;

/// Destroys a node whose count has come to zero, and every node that only it kept, without recursion.
TOOL_BINDING_API void destroy_node(Node* node, Tag tag) noexcept;

/// The bytes of a text of at most 15 as the two halves of a cell, without a loop over them.
struct ShortText {
  std::uint64_t low = 0;
  std::uint64_t high = 0;

  explicit ShortText(std::string_view text) noexcept {
    const std::size_t size = text.size();
    if (size >= 8) {
      low = load<std::uint64_t>(text.data());
      high = size == 8 ? 0 : load<std::uint64_t>(text.data() + size - 8) >> (8 * (16 - size));
    } else if (size >= 4) {
      const std::uint64_t last = load<std::uint32_t>(text.data() + size - 4);
      low = load<std::uint32_t>(text.data()) | last << (8 * (size - 4));
    } else if (size > 0) {
      const auto byte = [&](std::size_t place) { return std::uint64_t{static_cast<unsigned char>(text[place])}; };
      low = byte(0) | byte(size / 2) << (8 * (size / 2)) | byte(size - 1) << (8 * (size - 1));
    }
    high |= std::uint64_t{inline_text_size - size} << 56U;
  }

 private:
  template <class Number>
  static std::uint64_t load(const char* bytes) noexcept {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
  }
};

/// Says of what is copied that no cell of it holds a node: its bytes are copied, and nothing is counted.
struct WithoutNodes {};

class TOOL_BINDING_API Cell {
 public:
  explicit Cell(Tag tag) noexcept : high_(shifted(tag)) {}

  /// A cell of `tag` with eight bytes of content.
  template <class Content>
  Cell(Tag tag, Content content) noexcept : low_(std::bit_cast<std::uint64_t>(content)), high_(shifted(tag)) {}

  /// A cell that holds `text`: in itself where it fits, else in a new node.
  explicit Cell(std::string_view text) {
    if (text.size() > inline_text_size) {
      low_ = std::bit_cast<std::uint64_t>(static_cast<Node*>(new_text_node(text)));
      high_ = shifted(Tag::text_node);
      return;
    }
    const ShortText packed(text);
    low_ = packed.low;
    high_ = packed.high;
  }

  Cell(const Cell& other) noexcept : low_(other.low_), high_(other.high_) {
    if (holds_node()) {
      node()->add_reference();
    }
  }

  Cell(const Cell& other, WithoutNodes /*known*/) noexcept : low_(other.low_), high_(other.high_) {}

  /// Takes over `other`, which holds `left_behind` afterwards.
  Cell(Cell& other, Tag left_behind) noexcept : low_(other.low_), high_(other.high_) {
    other.low_ = 0;
    other.high_ = shifted(left_behind);
  }

  Cell& operator=(const Cell&) = delete;

  ~Cell() {
    if (holds_node()) {
      release();
    }
  }

  void swap(Cell& other) noexcept {
    std::swap(low_, other.low_);
    std::swap(high_, other.high_);
  }

  /// Becomes null without giving the node's reference back. Precondition: `holds_node()`.
  void forget_node() noexcept {
    TOOL_BINDING_ASSERT(holds_node());
    high_ = shifted(Tag::null);
  }

  [[nodiscard]] Tag tag() const noexcept { return static_cast<Tag>(high_ >> 56U); }
  [[nodiscard]] bool holds_node() const noexcept { return static_cast<std::int64_t>(high_) < 0; }
  [[nodiscard]] bool holds_text() const noexcept { return tag() <= Tag::empty_text || tag() == Tag::text_node; }

  /// Whether the 16 bytes are the same: equal content, for all but two nodes and two floating numbers.
  [[nodiscard]] bool same_bytes(const Cell& other) const noexcept { return low_ == other.low_ && high_ == other.high_; }

  /// The two halves, as the tables of names hash them.
  [[nodiscard]] std::uint64_t low() const noexcept { return low_; }
  [[nodiscard]] std::uint64_t high() const noexcept { return high_; }

  template <class Content>
  [[nodiscard]] Content content() const noexcept {
    return std::bit_cast<Content>(low_);
  }

  [[nodiscard]] Node* node() const noexcept { return content<Node*>(); }

  /// The text's bytes, zero-terminated. Precondition: `holds_text()`, or the digits of an `integer_node`.
  [[nodiscard]] std::string_view text() const noexcept {
    TOOL_BINDING_ASSERT(holds_text() || tag() == Tag::integer_node);
    if (holds_node()) {
      const auto* held = static_cast<const TextNode*>(node());
      return {held->data(), held->size};
    }
    return {reinterpret_cast<const char*>(this), inline_text_size - static_cast<std::size_t>(high_ >> 56U)};
  }

 private:
  static constexpr std::uint64_t shifted(Tag tag) noexcept { return static_cast<std::uint64_t>(tag) << 56U; }

  void release() noexcept {
    Node* const held = node();
    if (held->drop_reference()) {
      destroy_node(held, tag());
    }
  }

  std::uint64_t low_ = 0;
  std::uint64_t high_ = 0;
};

static_assert(sizeof(Cell) == 16);

/// Equality of two cells that both hold a text, or both an integer. What is held in its cell equals nothing in a node;
/// where one cell is compared with many, let it be the left one.
[[nodiscard]] inline bool same_text(const Cell& left, const Cell& right) noexcept {
  if (!left.holds_node()) {
    return left.same_bytes(right);
  }
  return right.holds_node() && (left.node() == right.node() || left.text() == right.text());
}

}  // namespace tool_binding::detail
