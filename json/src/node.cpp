// SPDX-License-Identifier: MIT
#include "node.hpp"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "grammar.hpp"
#include "tokens.hpp"
#include "tool_binding/registry_check.hpp"
#include "value_builder.hpp"

namespace tool_binding::json {

namespace {

/// The values of `nodes`, copied into one block.
std::vector<Value> values_of(const std::vector<Node>& nodes) {
  std::vector<Value> values;
  values.reserve(nodes.size());
  std::transform(nodes.begin(), nodes.end(), std::back_inserter(values), [](const Node& node) { return node.value; });
  return values;
}

template <class Item>
std::vector<Item> take_from(std::vector<Item>& stack, std::size_t first) {
  const auto begin = stack.begin() + static_cast<std::ptrdiff_t>(first);
  std::vector<Item> taken(std::make_move_iterator(begin), std::make_move_iterator(stack.end()));
  stack.resize(first);
  return taken;
}

/// Builds the nodes of a text in the way in which values are built.
class NodeBuilder {
 public:
  explicit NodeBuilder(std::string_view text) : text_(text) {}

  void open(std::size_t offset) { opened_.push_back({line_at(offset), nodes_.size(), names_.size()}); }
  void key(std::string_view name, std::size_t /*offset*/) { names_.emplace_back(name); }
  void scalar(Value value, std::size_t offset) { nodes_.push_back({std::move(value), line_at(offset)}); }

  void close_list() {
    Node node = closed();
    node.value = values_of(node.children);
    nodes_.push_back(std::move(node));
  }

  void close_mapping() {
    Node node = closed();
    node.names = take_from(names_, last_.name);
    node.repeated = repeated_names(node.names);
    std::vector<Text> names = node.names;
    std::vector<Value> values = values_of(node.children);
    node.value = mapping_of(names, values, node.repeated);
    nodes_.push_back(std::move(node));
  }

  [[nodiscard]] Node take() { return std::move(nodes_.back()); }

 private:
  struct Opened {
    std::size_t line;
    std::size_t node;
    std::size_t name;
  };

  Node closed() {
    last_ = opened_.back();
    opened_.pop_back();
    return {Value(), last_.line, take_from(nodes_, last_.node)};
  }

  /// Places come in ascending order, so that the text is counted through once.
  std::size_t line_at(std::size_t offset) {
    const std::string_view passed = text_.substr(counted_, offset - counted_);
    line_ += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
    counted_ = offset;
    return line_;
  }

  std::string_view text_;
  std::size_t counted_ = 0;
  std::size_t line_ = 1;
  std::vector<Node> nodes_;
  std::vector<Text> names_;
  std::vector<Opened> opened_;
  Opened last_{};
};

/// The item that a place begins with, as "[3].name": a long list is not searched.
const Node* take_item(const Node& list, std::string_view& place) {
  std::size_t index = list.children.size();
  const char* const end = place.data() + place.size();
  const auto [stop, error] = std::from_chars(place.data() + 1, end, index);
  if (index >= list.children.size() || stop == end || *stop != ']') {
    return nullptr;
  }
  place.remove_prefix(static_cast<std::size_t>(stop - place.data()) + 1);
  return &list.children[index];
}

/// The size of the member that a place begins with, as `member_place` writes it: "limit" of "limit.type".
std::size_t member_size(std::string_view place) noexcept {
  if (!place.starts_with('[')) {
    return std::min(place.find_first_of(".["), place.size());
  }
  std::size_t at = 2;
  while (at < place.size() && place[at] != place[1]) {
    at += place[at] == '\\' ? 2U : 1U;
  }
  return std::min(at + 2, place.size());
}

}  // namespace

std::string child_place(const Node& parent, std::string_view place, std::size_t child) {
  return parent.value.is_list() ? item_place(place, child) : member_place(place, parent.names[child]);
}

Node read_node(std::string_view text) {
  Tokens tokens;
  tokens.cut(text);
  std::string unescaped;
  NodeBuilder builder(text);
  Grammar(tokens, unescaped, builder).walk();
  return builder.take();
}

std::size_t Lines::of(std::string_view place) {
  const Node* node = &root_;
  for (const Node* inner = node; inner != nullptr; inner = take_child(*node, place)) {
    node = inner;
  }
  return node->line;
}

/// The child that a place below `parent` begins with, which is taken off the place; null for none.
const Node* Lines::take_child(const Node& parent, std::string_view& place) {
  if (parent.value.is_list() && place.starts_with('[')) {
    return take_item(parent, place);
  }
  place.remove_prefix(place.starts_with('.') ? 1 : 0);
  if (place.empty() || parent.names.empty()) {
    return nullptr;
  }
  const std::size_t size = member_size(place);
  const Members& members = members_of(parent);
  const auto found = members.find(std::string(place.substr(0, size)));
  if (found == members.end()) {
    return nullptr;
  }
  place.remove_prefix(size);
  return found->second;
}

const Lines::Members& Lines::members_of(const Node& object) {
  const auto [entry, is_new] = members_.try_emplace(&object);
  for (std::size_t child = 0; is_new && child < object.names.size(); ++child) {
    entry->second.emplace(member_place("", object.names[child]), &object.children[child]);
  }
  return entry->second;
}

}  // namespace tool_binding::json
