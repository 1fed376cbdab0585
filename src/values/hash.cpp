// SPDX-License-Identifier: MIT
#include <cstdint>
#include <vector>

#include "tool_binding/value.hpp"

namespace tool_binding {

namespace {

std::size_t mixed(std::size_t hash, std::size_t more) noexcept {
  constexpr std::uint64_t golden_ratio = 0x9E3779B97F4A7C15;
  return static_cast<std::size_t>((std::uint64_t{hash} ^ (std::uint64_t{more} + (hash << 6U) + (hash >> 2U))) *
                                  golden_ratio);
}

/// The hash of a value without what it holds; its items are left for later.
struct HashingOne {
  std::vector<const Value*>& later;

  std::size_t operator()(std::nullptr_t) const noexcept { return 0; }
  std::size_t operator()(std::span<const Value> items) const {
    for (const Value& item : items) {
      later.push_back(&item);
    }
    return items.size();
  }
  std::size_t operator()(const ArgumentMap& entries) const {
    std::size_t names = entries.size();
    for (const auto& [name, value] : entries) {
      names = mixed(names, std::hash<Text>{}(name));
      later.push_back(&value);
    }
    return names;
  }
  template <class Scalar>
  std::size_t operator()(const Scalar& scalar) const noexcept {
    return std::hash<Scalar>{}(scalar);
  }
};

}  // namespace

}  // namespace tool_binding

std::size_t std::hash<tool_binding::Value>::operator()(const tool_binding::Value& value) const {
  using namespace tool_binding;
  std::vector<const Value*> later;
  const auto hash_of_one = [&](const Value& one) {
    return mixed(static_cast<std::size_t>(one.kind()), one.visit(HashingOne{later}));
  };
  std::size_t all = hash_of_one(value);
  while (!later.empty()) {
    const Value& next = *later.back();
    later.pop_back();
    all = mixed(all, hash_of_one(next));
  }
  return all;
}
