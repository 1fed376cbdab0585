// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "node.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/registry_check.hpp"

/// The reading of a node into a field: one overload for each type of field, one template for all records. A node of the
/// wrong shape adds a fault and leaves the field as it is.
namespace tool_binding::json {

/// The faults of shape, as they are found.
class ShapeFaults {
 public:
  /// Returns `holds`; where it does not, `node` is not what is `wanted`.
  bool require(bool holds, std::string_view wanted, const Node& node, const std::string& place);

  void add(const Node& node, std::string place, std::string words) {
    faults_.push_back({RegistryFinding::Kind::shape, std::move(place), std::move(words), node.line});
  }

  [[nodiscard]] std::span<const RegistryFinding> all() const noexcept { return faults_; }
  [[nodiscard]] std::vector<RegistryFinding> take() noexcept { return std::move(faults_); }

 private:
  std::vector<RegistryFinding> faults_;
};

/// The word of a handler parameter's kind.
[[nodiscard]] std::string_view parameter_kind_word(Parameter::Kind kind) noexcept;

/// A text for people, which nothing reads.
struct FreeText {};

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, FreeText& text);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, Text& text);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, std::optional<Text>& text);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, bool& flag);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, Value& value);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, ArgumentMap& map);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, Parameter::Kind& kind);
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, RegistryEntry& entry);

/// One key that an object may have, and the reading of its value into the object's record.
template <class Record>
struct Key {
  std::string_view name;
  void (*read)(ShapeFaults&, const Node&, const std::string& place, Record&);
  bool needed = false;
};

/// The keys that the object of a record may have; specialized for each record.
template <class Record>
[[nodiscard]] std::span<const Key<Record>> keys();

template <class Record>
std::string unknown_key(std::string_view name) {
  std::vector<std::string_view> names;
  for (const Key<Record>& key : keys<Record>()) {
    names.push_back(key.name);
  }
  return "is not a known key" + did_you_mean(name, names);
}

template <class Record>
void require_needed(ShapeFaults& faults, const Node& node, const std::string& place) {
  for (const Key<Record>& key : keys<Record>()) {
    const Value* const given = node.value.mapping().find(key.name);
    if (key.needed && (given == nullptr || given->is_null())) {
      faults.add(node, member_place(place, key.name), "is missing");
    }
  }
}

/// Reads the members of an object, each under its first occurrence. A null stands for a key left out.
template <class Record>
void read_members(ShapeFaults& faults, const Node& node, const std::string& place, Record& record) {
  if (!faults.require(node.value.is_mapping(), "an object", node, place)) {
    return;
  }
  const auto rows = keys<Record>();
  for (std::size_t member = 0; member < node.children.size(); ++member) {
    if (std::binary_search(node.repeated.begin(), node.repeated.end(), member)) {
      continue;
    }
    const Node& child = node.children[member];
    const std::string_view name = node.names[member];
    const auto key = std::find_if(rows.begin(), rows.end(), [&](const Key<Record>& row) { return row.name == name; });
    if (key == rows.end()) {
      faults.add(child, member_place(place, name), unknown_key<Record>(name));
    } else if (!child.value.is_null()) {
      key->read(faults, child, member_place(place, name), record);
    }
  }
  require_needed<Record>(faults, node, place);
}

template <class Record>
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, Record& record) {
  read_members(faults, node, place, record);
}

template <class Item>
void read_field(ShapeFaults& faults, const Node& node, const std::string& place, std::vector<Item>& items) {
  if (!faults.require(node.value.is_list(), "a list", node, place)) {
    return;
  }
  for (std::size_t index = 0; index < node.children.size(); ++index) {
    read_field(faults, node.children[index], item_place(place, index), items.emplace_back());
  }
}

}  // namespace tool_binding::json
