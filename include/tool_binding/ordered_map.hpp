// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <type_traits>
#include <utility>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/entry_row.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/detail/ranges.hpp"
#include "tool_binding/text.hpp"

namespace tool_binding {

namespace detail {

/// The names of a map's entries, whatever it maps them to.
struct HeldNames {
  const void* entries;
  std::size_t size;
  const Text& (*name_at)(const void* entries, std::size_t place);

  [[nodiscard]] const Text& operator[](std::size_t place) const { return name_at(entries, place); }
};

/// Throws the KeyError of a map that holds these names, and not `name`.
[[noreturn]] TOOL_BINDING_API void throw_no_entry(const Text& name, HeldNames held);

/// Where each name of a large map is; none until a search makes it.
class TOOL_BINDING_API PlaceIndex {
 public:
  PlaceIndex() noexcept = default;
  PlaceIndex(PlaceIndex&& other) noexcept : places_(std::exchange(other.places_, nullptr)) {}
  PlaceIndex& operator=(PlaceIndex other) noexcept {
    std::swap(places_, other.places_);
    return *this;
  }
  ~PlaceIndex() { drop(); }

  [[nodiscard]] bool is_made() const noexcept { return places_ != nullptr; }

  /// The place of `name` among the names of the map, their number when it is none of them. Made by whichever search
  /// comes first; any number of threads may search.
  [[nodiscard]] std::size_t find(const Text& name, HeldNames held) const;

  /// Adds a name that the map did not hold. Precondition: `is_made()`.
  void add(const Text& name, std::size_t place);

  /// Ends the index: the next search makes another.
  void drop() noexcept {
    if (is_made()) {
      destroy();
    }
  }

 private:
  struct Places;

  void destroy() noexcept;

  mutable Places* places_ = nullptr;  ///< owned
};

}  // namespace detail

/// One entry of an ordered map.
template <class Mapped>
struct MapEntry {
  Text name;
  Mapped value;

  template <class Name, class Content>
  MapEntry(Name&& given_name, Content&& given_value)
      : name(std::forward<Name>(given_name)), value(std::forward<Content>(given_value)) {}

  /// The entry of a map to other values, of which `Mapped` can be made.
  template <class Other>
  MapEntry(const MapEntry<Other>& other)  // NOLINT(google-explicit-constructor)
      noexcept(std::is_nothrow_constructible_v<Mapped, const Other&>)
      : name(other.name), value(other.value) {}
  template <class Other>
  MapEntry(MapEntry<Other>&& other)  // NOLINT(google-explicit-constructor)
      noexcept(std::is_nothrow_constructible_v<Mapped, Other&&>)
      : name(std::move(other.name)), value(std::move(other.value)) {}

  template <class Other>
  MapEntry(const Text& given_name, const Other& given_value, detail::WithoutNodes known) noexcept
      : name(given_name, known), value(given_value, known) {}

  friend bool operator==(const MapEntry&, const MapEntry&) = default;
};

/// An insertion-ordered map from name to `Mapped`, the map under `ArgumentMap` and `KeywordArguments`.
///
/// Setting a name that is already held replaces the value and leaves the entry in its place; any other name is
/// appended. Entries are kept in one contiguous block. Up to `linear_search_limit` of them are searched one by one; in
/// a larger map the first search makes an ordered index, so that n searches cost n log n whoever chose the names.
/// Reading one map from several threads is safe, the making of that index included. A map that is moved from is empty.
template <class Mapped>
class OrderedMap {
 public:
  using Entry = MapEntry<Mapped>;
  using key_type = Text;
  using mapped_type = Mapped;
  using value_type = Entry;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using reference = const Entry&;
  using const_reference = const Entry&;
  using const_iterator = const Entry*;
  using iterator = const_iterator;

  static constexpr std::size_t linear_search_limit = 16;

  OrderedMap() noexcept = default;
  OrderedMap(std::initializer_list<Entry> entries) {
    reserve(entries.size());
    for (const Entry& entry : entries) {
      set(entry.name, entry.value);
    }
  }

  /// The entries of a range of pairs, or of this map's own entries, set one after another.
  template <std::input_iterator Iterator>
  OrderedMap(Iterator first, Iterator last) {
    for (; first != last; ++first) {
      const auto& [name, value] = *first;
      set(name, value);
    }
  }
  /// The entries of a range of pairs, as std::map is.
  template <detail::Named Range>
  explicit OrderedMap(const Range& range) : OrderedMap(std::begin(range), std::end(range)) {}

  /// The entries of a map, to values of which `Mapped` can be made, with room for `more` entries. A map that is given
  /// away keeps the room that it has, and loses its entries.
  template <class Other>
  OrderedMap(const OrderedMap<Other>& other, std::size_t more) : entries_(other.entries_, more) {}
  template <class Other>
  OrderedMap(const OrderedMap<Other>& other, std::size_t more, detail::WithoutNodes known)
      : entries_(other.entries_, more, known) {}
  template <class Other>
  explicit OrderedMap(OrderedMap<Other>&& other) noexcept : entries_(std::move(other.entries_)) {
    other = {};
  }

  /// An entry for each of `names`, with the value at its place: both are moved from, wherever they are. Precondition:
  /// as many values as names, of which no two are equal.
  [[nodiscard]] static OrderedMap of_moved(std::span<Text> names, std::span<Mapped> values) {
    OrderedMap map;
    map.entries_ = detail::EntryRow<Entry>(names, values);
    return map;
  }

  OrderedMap(const OrderedMap& other) : entries_(other.entries_) {}
  OrderedMap(OrderedMap&& other) noexcept : entries_(std::move(other.entries_)), index_(std::move(other.index_)) {}
  OrderedMap& operator=(OrderedMap other) noexcept {
    entries_.swap(other.entries_);
    index_ = std::move(other.index_);
    return *this;
  }
  ~OrderedMap() = default;

  /// Makes room for `count` entries in all. Throws std::length_error for more than any memory holds.
  void reserve(std::size_t count) { entries_.reserve(count); }

  /// Sets `name` to `value`: in its place where the map holds the name, else as the last entry.
  void set(Text name, Mapped value) {
    if (const std::size_t place = place_of(name); place != entries_.size()) {
      entries_[place].value = std::move(value);
      return;
    }
    append(std::move(name), std::move(value));
  }

  /// Appends an entry without a search. Precondition: the map does not hold `name`.
  template <class Name, class Content>
  void append(Name&& name, Content&& value) {
    // Searched linearly or not at all: a check must not make an index.
    TOOL_BINDING_ASSERT(size() > linear_search_limit || linear_search(name) == size());
    entries_.emplace_back(std::forward<Name>(name), std::forward<Content>(value));
    if (index_.is_made()) {
      add_last_to_index();
    }
  }

  /// Replaces the value of the entry at `place`. Precondition: `place` is below `size()`.
  void replace_at(std::size_t place, Mapped value) { entries_[place].value = std::move(value); }

  /// Takes the entry of that name out, and tells whether there was one. The entries after it move up: it takes time
  /// linear in the size of the map.
  bool erase(const Text& name) {
    const std::size_t place = place_of(name);
    if (place == entries_.size()) {
      return false;
    }
    index_.drop();
    entries_.erase(place);
    return true;
  }

  /// Exchanges the value of the entry at `place` with one of another map's. Precondition: both entries are there.
  void swap_at(std::size_t place, OrderedMap& other, std::size_t other_place) noexcept {
    using std::swap;
    swap(entries_[place].value, other.entries_[other_place].value);
  }

  /// The value under `name`, null when there is none. The pointer lives until the map is changed.
  [[nodiscard]] const Mapped* find(const Text& name) const TOOL_BINDING_LIFETIMEBOUND {
    const std::size_t place = place_of(name);
    return place == entries_.size() ? nullptr : &entries_[place].value;
  }
  [[nodiscard]] bool contains(const Text& name) const { return find(name) != nullptr; }

  /// The value under `name`, until the map is changed. Throws KeyError, which says what names there are.
  [[nodiscard]] const Mapped& at(const Text& name) const& TOOL_BINDING_LIFETIMEBOUND {
    const Mapped* const found = find(name);
    if (found == nullptr) {
      detail::throw_no_entry(name, names());
    }
    return *found;
  }
  [[nodiscard]] Mapped at(const Text& name) && { return at(name); }

  /// The place of the entry of that name, `size()` when there is none: found one by one in any map, for the few
  /// searches that do not pay for an index.
  [[nodiscard]] std::size_t linear_search(const Text& name) const noexcept {
    std::size_t place = 0;
    while (place != size() && name != entries_[place].name) {
      ++place;
    }
    return place;
  }

  [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
  [[nodiscard]] bool empty() const noexcept { return entries_.empty(); }

  /// The entry at `place`, and the range of all. Precondition: `place` is below `size()`.
  [[nodiscard]] const Entry& operator[](std::size_t place) const noexcept TOOL_BINDING_LIFETIMEBOUND {
    return entries_[place];
  }
  [[nodiscard]] const_iterator begin() const noexcept TOOL_BINDING_LIFETIMEBOUND { return entries_.begin(); }
  [[nodiscard]] const_iterator end() const noexcept TOOL_BINDING_LIFETIMEBOUND { return entries_.end(); }

  /// Equal when both hold equal entries in the same order.
  friend bool operator==(const OrderedMap& left, const OrderedMap& right) {
    if (left.size() != right.size()) {
      return false;
    }
    for (std::size_t place = 0; place < left.size(); ++place) {
      if (!(left[place] == right[place])) {
        return false;
      }
    }
    return true;
  }

 private:
  friend struct detail::NodeAccess;
  template <class Other>
  friend class OrderedMap;

  [[nodiscard]] std::size_t place_of(const Text& name) const {
    return entries_.size() <= linear_search_limit ? linear_search(name) : indexed_search(name);
  }
  [[nodiscard, gnu::noinline]] std::size_t indexed_search(const Text& name) const { return index_.find(name, names()); }

  [[nodiscard]] detail::HeldNames names() const noexcept { return {entries_.begin(), entries_.size(), name_at}; }
  static const Text& name_at(const void* entries, std::size_t place) {
    return static_cast<const Entry*>(entries)[place].name;
  }

  [[gnu::noinline]] void add_last_to_index() {
    try {
      index_.add(entries_.back().name, entries_.size() - 1);
    } catch (...) {
      entries_.pop_back();
      throw;
    }
  }

  detail::EntryRow<Entry> entries_;
  detail::PlaceIndex index_;
};

}  // namespace tool_binding
