// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// The 16 bytes under `Text`, `Integer` and `Value`, and the shared nodes that larger contents stand in.
///
/// A cell is either complete in itself or the owner of one reference to an immutable node with an atomic count. Its
/// last byte, the tag, says which. Copying a cell copies 16 bytes and, for a node, counts; content is never copied.
/// Nothing here is for a daemon's own use.
namespace tool_binding::detail {

/// What a cell holds. The tags 0 to 15 are texts that stand in the cell: the tag is 15 less the text's bytes, so that
/// the longest one ends in a zero byte of its own and every text is zero-terminated.
enum class Tag : std::uint8_t {
  empty_text = 15,
  null = 16,
  boolean,
  integer,
  floating,
  text_node = 0x80,
  integer_node,
  list_node,
  mapping_node,
  context_node,
};

inline constexpr std::size_t inline_text_size = 15;

/// The head of every node. The count is the number of cells that refer to the node.
struct Node {
  std::atomic<std::size_t> count{1};
};

/// A long text, or the canonical decimal digits of an integer beyond 64 bits: the bytes and a zero follow the head.
struct TextNode : Node {
  std::size_t size;

  explicit TextNode(std::size_t bytes) noexcept : size(bytes) {}
  [[nodiscard]] const char* data() const noexcept { return reinterpret_cast<const char*>(this + 1); }
  [[nodiscard]] char* data() noexcept { return reinterpret_cast<char*>(this + 1); }
};

/// A node of `size` bytes with its closing zero, count 1; the bytes are the caller's to fill before it is shared.
[[nodiscard]] TextNode* new_text_node(std::size_t size);

/// The destruction of nodes, which reaches into lists and mappings.
struct NodeAccess;

/// Destroys a node whose count has come to zero, and every node that only it kept, without recursion.
void destroy_node(Node* node, Tag tag) noexcept;

class Cell {
 public:
  explicit Cell(Tag tag) noexcept { set_tag(tag); }

  /// A cell of `tag` with eight bytes of content.
  template <class Content>
  Cell(Tag tag, Content content) noexcept {
    static_assert(sizeof(Content) <= 8);
    std::memcpy(bytes_, &content, sizeof content);
    set_tag(tag);
  }

  /// A cell that holds `text`: in itself where it fits, else in a new node.
  explicit Cell(std::string_view text) {
    if (text.size() > inline_text_size) {
      adopt_copy_of(text);
      return;
    }
    if (!text.empty()) {
      std::memcpy(bytes_, text.data(), text.size());
    }
    bytes_[15] = static_cast<unsigned char>(inline_text_size - text.size());
  }

  Cell(const Cell& other) noexcept {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    if (holds_node()) {
      node()->count.fetch_add(1, std::memory_order_relaxed);
    }
  }

  /// Takes over `other`, which holds `left_behind` afterwards.
  Cell(Cell& other, Tag left_behind) noexcept {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    std::memset(other.bytes_, 0, sizeof other.bytes_);
    other.set_tag(left_behind);
  }

  Cell& operator=(const Cell&) = delete;

  ~Cell() {
    if (holds_node()) {
      release();
    }
  }

  void swap(Cell& other) noexcept {
    unsigned char kept[16];
    std::memcpy(kept, bytes_, sizeof bytes_);
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    std::memcpy(other.bytes_, kept, sizeof bytes_);
  }

  /// Becomes null without giving the node's reference back. Precondition: `holds_node()`.
  void forget_node() noexcept { set_tag(Tag::null); }

  [[nodiscard]] Tag tag() const noexcept { return static_cast<Tag>(bytes_[15]); }
  [[nodiscard]] bool holds_node() const noexcept { return (bytes_[15] & 0x80U) != 0; }
  [[nodiscard]] bool holds_text() const noexcept { return bytes_[15] <= inline_text_size || tag() == Tag::text_node; }

  /// Whether the 16 bytes are the same: equal content, for all but two nodes and two floating numbers.
  [[nodiscard]] bool same_bytes(const Cell& other) const noexcept {
    return word(0) == other.word(0) && word(1) == other.word(1);
  }

  /// One of the two halves, as the tables of names hash and compare them. Precondition: `half` is 0 or 1.
  [[nodiscard]] std::uint64_t word(std::size_t half) const noexcept {
    std::uint64_t bits = 0;
    std::memcpy(&bits, bytes_ + 8 * half, sizeof bits);
    return bits;
  }

  template <class Content>
  [[nodiscard]] Content content() const noexcept {
    Content content;
    std::memcpy(&content, bytes_, sizeof content);
    return content;
  }

  [[nodiscard]] Node* node() const noexcept { return content<Node*>(); }

  /// The text's bytes, zero-terminated. Precondition: `holds_text()`, or the digits of an `integer_node`.
  [[nodiscard]] std::string_view text() const noexcept {
    if (holds_node()) {
      const auto* held = static_cast<const TextNode*>(node());
      return {held->data(), held->size};
    }
    return {reinterpret_cast<const char*>(bytes_), inline_text_size - bytes_[15]};
  }

 private:
  void set_tag(Tag tag) noexcept { bytes_[15] = static_cast<unsigned char>(tag); }
  void adopt_copy_of(std::string_view text);

  void release() noexcept {
    Node* const held = node();
    if (held->count.load(std::memory_order_acquire) == 1 || held->count.fetch_sub(1, std::memory_order_acq_rel) == 1) {
      destroy_node(held, tag());
    }
  }

  alignas(8) unsigned char bytes_[16] = {};
};

static_assert(sizeof(Cell) == 16);

/// Equality of two cells that both hold a text, or both the digits of a wide integer.
[[nodiscard]] inline bool same_text(const Cell& left, const Cell& right) noexcept {
  return left.same_bytes(right) || (left.holds_node() && right.holds_node() && left.text() == right.text());
}

}  // namespace tool_binding::detail
