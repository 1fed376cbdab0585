// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <utility>
#include <vector>

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

struct ListNode : ContainerNode {
  std::vector<Value> items;

  explicit ListNode(std::vector<Value>&& held) noexcept : ContainerNode(Tag::list_node), items(std::move(held)) {}
};

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
