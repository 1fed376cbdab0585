// SPDX-License-Identifier: MIT
#include <string>
#include <utility>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "values/nodes.hpp"

namespace tool_binding {

namespace {

/// Precondition: `argument` is a context item's cell.
const detail::ContextNode& node_of(const detail::Cell& cell) noexcept {
  TOOL_BINDING_ASSERT(cell.tag() == detail::Tag::context_node);
  return *static_cast<const detail::ContextNode*>(cell.node());
}

}  // namespace

KeywordArgument::KeywordArgument(std::shared_ptr<const volatile void> item, std::span<const detail::ItemView> views)
    : held_(detail::Cell(detail::Tag::context_node,
                         static_cast<detail::Node*>(new detail::ContextNode(std::move(item), views)))) {}

std::string_view KeywordArgument::item_type_name() const noexcept {
  return is_context() ? node_of(held_.cell_).views.front().type->name : std::string_view();
}

void KeywordArgument::refuse_item() const {
  std::string message = "the keyword argument is a context item of the type ";
  throw TypeError(message.append(item_type_name()).append(", not a value"));
}

void* KeywordArgument::find_item(const detail::ItemType& type) const noexcept {
  if (is_context()) {
    const detail::ContextNode& node = node_of(held_.cell_);
    for (const detail::ItemView& view : node.views) {
      if (view.type == &type) {
        void* const item = const_cast<void*>(node.item.get());
        return view.address == nullptr ? item : view.address(item);
      }
    }
  }
  return nullptr;
}

void* KeywordArgument::item_of(const detail::ItemType& type) const {
  if (void* const found = find_item(type); found != nullptr) {
    return found;
  }
  std::string message = "the keyword argument is ";
  message.append(is_context() ? "a context item of the type " : "the value ");
  message.append(is_context() ? std::string(item_type_name()) : quoted_form(held_));
  throw TypeError(message.append(", not a context item of the type ").append(type.name));
}

const std::shared_ptr<const volatile void>& KeywordArgument::owner() const noexcept {
  return node_of(held_.cell_).item;
}

bool KeywordArgument::equals(const KeywordArgument& other) const {
  if (is_context() || other.is_context()) {
    return held_.cell_.same_bytes(other.held_.cell_);
  }
  return held_ == other.held_;
}

}  // namespace tool_binding
