// SPDX-License-Identifier: MIT
#include "values/nodes.hpp"

#include <memory>
#include <new>
#include <span>

namespace tool_binding::detail {

TextNode* new_text_node(std::size_t size) {
  void* const memory = ::operator new(sizeof(TextNode) + size + 1);
  auto* const node = new (memory) TextNode(size);
  node->data()[size] = '\0';
  return node;
}

TextNode* new_text_node(std::string_view text) {
  TextNode* const node = new_text_node(text.size());
  std::memcpy(node->data(), text.data(), text.size());
  return node;
}

ListNode* new_list_node(std::span<Value> items) {
  auto* const node = new (::operator new(sizeof(ListNode) + items.size_bytes())) ListNode(items.size());
  std::uninitialized_move(items.begin(), items.end(), node->items());
  return node;
}

/// Takes lists and mappings apart, outermost first, and chains what only they kept.
struct NodeAccess {
  static void destroy_containers(ContainerNode* pending) noexcept {
    while (pending != nullptr) {
      ContainerNode* const node = pending;
      pending = node->next_to_destroy;
      if (node->tag == Tag::list_node) {
        destroy(static_cast<ListNode*>(node), pending);
      } else {
        destroy(static_cast<MappingNode*>(node), pending);
      }
    }
  }

 private:
  static void destroy(ListNode* node, ContainerNode*& pending) noexcept {
    for (Value& item : std::span(node->items(), node->size)) {
      detach(item.cell_, pending);
    }
    std::destroy_n(node->items(), node->size);
    node->~ListNode();
    ::operator delete(node);
  }

  static void destroy(MappingNode* node, ContainerNode*& pending) noexcept {
    for (auto& entry : node->entries.entries_) {
      detach(entry.value.cell_, pending);
    }
    delete node;
  }

  static void detach(Cell& cell, ContainerNode*& pending) noexcept {
    if (cell.tag() != Tag::list_node && cell.tag() != Tag::mapping_node) {
      return;
    }
    auto* const node = static_cast<ContainerNode*>(cell.node());
    cell.forget_node();
    if (node->drop_reference()) {
      node->next_to_destroy = pending;
      pending = node;
    }
  }
};

void destroy_node(Node* node, Tag tag) noexcept {
  switch (tag) {
    case Tag::list_node:
    case Tag::mapping_node:
      NodeAccess::destroy_containers(static_cast<ContainerNode*>(node));
      return;
    case Tag::context_node:
      delete static_cast<ContextNode*>(node);
      return;
    default:
      static_cast<TextNode*>(node)->~TextNode();
      ::operator delete(node);
  }
}

}  // namespace tool_binding::detail
