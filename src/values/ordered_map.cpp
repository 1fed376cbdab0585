// SPDX-License-Identifier: MIT
#include "tool_binding/ordered_map.hpp"

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "tool_binding/errors.hpp"

namespace tool_binding::detail {

namespace {

/// As many names as a person reads.
constexpr std::size_t names_shown = 8;

}  // namespace

void throw_no_entry(const Text& name, HeldNames held) {
  std::string message = "no entry is named '" + name + "'";
  std::string_view before = ": there are ";
  for (std::size_t place = 0; place < std::min(held.size, names_shown); ++place) {
    message.append(before).append("'").append(held[place]).append("'");
    before = ", ";
  }
  if (held.size > names_shown) {
    message.append(" and ").append(std::to_string(held.size - names_shown)).append(" more");
  }
  throw KeyError(message.append(held.size == 0 ? ": the map is empty" : ""));
}

struct PlaceIndex::Places {
  std::map<Text, std::size_t> of_names;
};

std::size_t PlaceIndex::find(const Text& name, HeldNames held) const {
  // Of two that are made at once the later one is thrown away.
  const std::atomic_ref<Places*> shared(places_);
  const Places* made = shared.load(std::memory_order_acquire);
  if (made == nullptr) {
    auto fresh = std::make_unique<Places>();
    for (std::size_t place = 0; place < held.size; ++place) {
      fresh->of_names.emplace(held[place], place);
    }
    Places* expected = nullptr;
    made =
        shared.compare_exchange_strong(expected, fresh.get(), std::memory_order_acq_rel) ? fresh.release() : expected;
  }
  const auto found = made->of_names.find(name);
  return found == made->of_names.end() ? held.size : found->second;
}

void PlaceIndex::add(const Text& name, std::size_t place) { places_->of_names.emplace(name, place); }

void PlaceIndex::destroy() noexcept { delete std::exchange(places_, nullptr); }

void throw_too_many_entries() { throw std::length_error("more entries than any memory holds"); }

}  // namespace tool_binding::detail
