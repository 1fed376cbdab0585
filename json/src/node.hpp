// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tool_binding/value.hpp"

namespace tool_binding::json {

/// A value together with what a message about it needs: its line, and every member of an object, the repeated ones too.
struct Node {
  Value value;
  std::size_t line = 0;
  std::vector<Node> children = {};         ///< the items of a list, or the values of an object
  std::vector<Text> names = {};            ///< the keys of an object, one for each child
  std::vector<std::size_t> repeated = {};  ///< the children whose key occurs earlier in the object, in ascending order
};

/// The place of a child of the node at `place`.
[[nodiscard]] std::string child_place(const Node& parent, std::string_view place, std::size_t child);

/// Throws ParseError as a reader does.
[[nodiscard]] Node read_node(std::string_view text);

/// The lines of places in one text. An object is indexed when the first place in it is looked up, so that many places
/// are found in the time that it takes to read them.
class Lines {
 public:
  /// `root` outlives the object.
  explicit Lines(const Node& root) noexcept : root_(root) {}

  /// The line of the innermost node around `place`.
  [[nodiscard]] std::size_t of(std::string_view place);

 private:
  using Members = std::unordered_map<std::string, const Node*>;

  [[nodiscard]] const Node* take_child(const Node& parent, std::string_view& place);
  [[nodiscard]] const Members& members_of(const Node& object);

  const Node& root_;
  std::unordered_map<const Node*, Members> members_;  ///< as a place names them
};

}  // namespace tool_binding::json
