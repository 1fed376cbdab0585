// SPDX-License-Identifier: MIT
#include <utility>

#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "values/nodes.hpp"

namespace tool_binding {

KeywordArgument::KeywordArgument(std::shared_ptr<const volatile void> item, std::type_index type)
    : held_(detail::Cell(detail::Tag::context_node,
                         static_cast<detail::Node*>(new detail::ContextNode(std::move(item), type)))) {}

const Value& KeywordArgument::value() const {
  if (is_context()) {
    throw TypeError("the keyword argument is a context item, not a value");
  }
  return held_;
}

void* KeywordArgument::item_of(std::type_index type) const {
  const auto* const node = is_context() ? static_cast<const detail::ContextNode*>(held_.cell_.node()) : nullptr;
  if (node == nullptr || node->type != type) {
    throw TypeError("the keyword argument is no context item of this type");
  }
  return const_cast<void*>(node->item.get());
}

bool KeywordArgument::equals(const KeywordArgument& other) const {
  if (is_context() || other.is_context()) {
    return held_.cell_.same_bytes(other.held_.cell_);
  }
  return held_ == other.held_;
}

}  // namespace tool_binding
