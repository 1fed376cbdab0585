// SPDX-License-Identifier: MIT
#include "tool_binding/value.hpp"

#include <array>
#include <iterator>
#include <utility>

#include "tool_binding/errors.hpp"
#include "values/forms.hpp"
#include "values/nodes.hpp"

namespace tool_binding {

namespace {

using detail::Tag;

/// In the order of `Kind`.
constexpr std::array<std::string_view, 7> words_of_kinds = {"null", "a boolean", "an integer", "a floating number",
                                                            "text", "a list",    "an object"};

/// A text of more bytes is not shown in a message about its kind.
constexpr std::size_t longest_shown = 60;

/// The node as a cell keeps it: a pointer to its head.
detail::Node* head(detail::Node* node) noexcept { return node; }

using Pair = std::pair<const Value*, const Value*>;

bool is_container(const Value& value) noexcept { return value.is_list() || value.is_mapping(); }

bool same_leaf(const Value& left, const Value& right) {
  switch (left.kind()) {
    case Kind::null:
      return true;
    case Kind::boolean:
      return left.boolean() == right.boolean();
    case Kind::integer:
      return left.integer() == right.integer();
    case Kind::floating:
      return left.floating() == right.floating();
    default:
      return left.text() == right.text();
  }
}

/// Compares one pair; two nested values are left for later.
bool same_so_far(const Value& left, const Value& right, std::vector<Pair>& later) {
  if (left.kind() != right.kind()) {
    return false;
  }
  if (!is_container(left)) {
    return same_leaf(left, right);
  }
  later.emplace_back(&left, &right);
  return true;
}

bool same_items(std::span<const Value> left, std::span<const Value> right, std::vector<Pair>& later) {
  if (left.size() != right.size()) {
    return false;
  }
  for (std::size_t index = 0; index < left.size(); ++index) {
    if (!same_so_far(left[index], right[index], later)) {
      return false;
    }
  }
  return true;
}

bool same_entries(const ArgumentMap& left, const ArgumentMap& right, std::vector<Pair>& later) {
  if (left.size() != right.size()) {
    return false;
  }
  for (std::size_t index = 0; index < left.size(); ++index) {
    if (left[index].name != right[index].name || !same_so_far(left[index].value, right[index].value, later)) {
      return false;
    }
  }
  return true;
}

bool same_containers(const Value& left, const Value& right, std::vector<Pair>& later) {
  return left.is_list() ? same_items(left.list(), right.list(), later)
                        : same_entries(left.mapping(), right.mapping(), later);
}

}  // namespace

std::string_view kind_words(Kind kind) noexcept { return words_of_kinds[static_cast<std::size_t>(kind)]; }

detail::Cell Value::list_of(std::span<Value> items) { return {Tag::list_node, head(detail::new_list_node(items))}; }

detail::Cell Value::mapping_of(ArgumentMap&& entries) {
  return {Tag::mapping_node, head(new detail::MappingNode(std::move(entries)))};
}

Value Value::list(std::initializer_list<Value> items) { return std::vector<Value>(items); }

Value Value::list_of_moved(std::span<Value> items) { return Value(list_of(items)); }

Value Value::mapping(std::initializer_list<ArgumentMap::Entry> entries) { return ArgumentMap(entries); }

void Value::throw_wrong_kind(Kind wanted) const {
  TextBuilder message;
  message.append("the value is ").append(kind_words(kind()));
  if (is_text() && text().size() <= longest_shown) {
    append_quoted_form(message.append(" "), *this);
  }
  throw TypeError(message.append(", not ").append(kind_words(wanted)).view());
}

std::span<const Value> Value::list() const& {
  require(is_list(), Kind::list);
  const auto* const node = static_cast<const detail::ListNode*>(cell_.node());
  return {node->items(), node->size};
}

std::vector<Value> Value::list() && {
  require(is_list(), Kind::list);
  const Value taken = std::move(*this);
  auto& node = *static_cast<detail::ListNode*>(taken.cell_.node());
  const std::span items(node.items(), node.size);
  return node.is_shared() ? std::vector<Value>(items.begin(), items.end())
                          : std::vector<Value>(std::move_iterator(items.begin()), std::move_iterator(items.end()));
}

const ArgumentMap& Value::mapping() const& {
  require(is_mapping(), Kind::mapping);
  return static_cast<const detail::MappingNode*>(cell_.node())->entries;
}

ArgumentMap Value::mapping() && {
  require(is_mapping(), Kind::mapping);
  const Value taken = std::move(*this);
  auto& node = *static_cast<detail::MappingNode*>(taken.cell_.node());
  return node.is_shared() ? node.entries : std::move(node.entries);
}

bool operator==(const Value& left, const Value& right) {
  std::vector<Pair> later;
  if (!same_so_far(left, right, later)) {
    return false;
  }
  while (!later.empty()) {
    const auto [next_left, next_right] = later.back();
    later.pop_back();
    if (!same_containers(*next_left, *next_right, later)) {
      return false;
    }
  }
  return true;
}

}  // namespace tool_binding
