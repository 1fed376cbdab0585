// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

#include "tool_binding/detail/item_type.hpp"
#include "tool_binding/value.hpp"

/// The nodes that hold lists, mappings and context items.
namespace tool_binding::detail {

/// A node that can hold other nodes. The link is used only once the count is zero: nodes that wait for their
/// destruction form a chain, so that no stack grows with the depth of a value.
struct ContainerNode : Node {
  ContainerNode* next_to_destroy = nullptr;
  Tag tag;

  explicit ContainerNode(Tag kind) noexcept : tag(kind) {}
};

/// A list: its items follow the head, in the same block.
struct ListNode : ContainerNode {
  std::size_t size;

  explicit ListNode(std::size_t item_count) noexcept : ContainerNode(Tag::list_node), size(item_count) {}
  [[nodiscard]] Value* items() noexcept { return reinterpret_cast<Value*>(this + 1); }
  [[nodiscard]] const Value* items() const noexcept { return reinterpret_cast<const Value*>(this + 1); }
};
static_assert(sizeof(ListNode) % alignof(Value) == 0);

/// A node of these items, which are moved from; count 1.
[[nodiscard]] ListNode* new_list_node(std::span<Value> items);

struct MappingNode : ContainerNode {
  ArgumentMap entries;

  explicit MappingNode(ArgumentMap&& held) noexcept : ContainerNode(Tag::mapping_node), entries(std::move(held)) {}
};

struct ContextNode : Node {
  std::shared_ptr<const volatile void> item;
  std::span<const ItemView>
      views;  ///< constants of the program; the first one has the type that the item was made with

  ContextNode(std::shared_ptr<const volatile void> shared, std::span<const ItemView> known) noexcept
      : item(std::move(shared)), views(known) {}
};

}  // namespace tool_binding::detail
