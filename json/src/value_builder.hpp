// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "repeated_names.hpp"
#include "tool_binding/value.hpp"

namespace tool_binding::json {

/// The mapping of `names` to `values`, one to one, which are moved from: of a repeated name the first position and the
/// last value. `repeated` are the indexes that `repeated_names` finds.
[[nodiscard]] inline ArgumentMap mapping_of(std::span<Text> names, std::span<Value> values,
                                            std::span<const std::size_t> repeated) {
  if (repeated.empty()) {
    return ArgumentMap::of_moved(names, values);
  }
  ArgumentMap entries;
  entries.reserve(names.size());
  for (std::size_t index = 0; index < names.size(); ++index) {
    entries.set(std::move(names[index]), std::move(values[index]));
  }
  return entries;
}

/// Builds the value of a text. What is read waits on two stacks until its container closes, so that every container is
/// made once, at its final size.
class ValueBuilder {
 public:
  void clear() noexcept {
    values_.clear();
    names_.clear();
    opened_.clear();
  }

  void open(std::size_t /*offset*/) { opened_.push_back({values_.size(), names_.size()}); }
  void key(std::string_view name, std::size_t /*offset*/) { names_.emplace_back(name); }
  template <class Content>
  void scalar(Content&& content, std::size_t /*offset*/) {
    values_.emplace_back(std::forward<Content>(content));
  }

  void close_list() { close_with(Value::list_of_moved(std::span(values_).subspan(opened_.back().value))); }

  void close_mapping() {
    const std::span<Text> names = std::span(names_).subspan(opened_.back().name);
    const std::span<Value> values = std::span(values_).subspan(opened_.back().value);
    close_with(mapping_of(names, values, repeated_names(names)));
  }

  /// The value, once the text is at its end.
  [[nodiscard]] Value take() noexcept { return std::move(values_.back()); }

 private:
  /// How much was on the stacks when a container was opened.
  struct Opened {
    std::size_t value;
    std::size_t name;
  };

  void close_with(Value value) {
    names_.resize(opened_.back().name);
    values_.resize(opened_.back().value);
    opened_.pop_back();
    values_.push_back(std::move(value));
  }

  std::vector<Value> values_;
  std::vector<Text> names_;
  std::vector<Opened> opened_;
};

}  // namespace tool_binding::json
