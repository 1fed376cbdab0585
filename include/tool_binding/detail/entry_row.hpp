// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "tool_binding/detail/assert.hpp"
#include "tool_binding/detail/cell.hpp"
#include "tool_binding/detail/export.hpp"

namespace tool_binding::detail {

/// Throws std::length_error.
[[noreturn]] TOOL_BINDING_API void throw_too_many_entries();

/// The entries of a map, in one block of the heap. A row differs from a vector in two promises: moving an entry never
/// fails, and a row of one type of entry becomes a row of another in the same block.
template <class Entry>
class EntryRow {
 public:
  EntryRow() noexcept = default;

  /// The entries of `other`, of which this row's can be made, with room for `more`.
  template <class Other>
  EntryRow(const EntryRow<Other>& other, std::size_t more)
      : entries_(room_for(other.size_, more)), size_(other.size_), capacity_(other.size_ + more) {
    static_assert(std::is_nothrow_constructible_v<Entry, const Other&>);
    std::uninitialized_copy_n(other.entries_, size_, entries_);
  }
  template <class Other>
  EntryRow(const EntryRow<Other>& other, std::size_t more, WithoutNodes known) : EntryRow(other.size_ + more) {
    for (; size_ < other.size_; ++size_) {
      const Other& entry = other.entries_[size_];
      ::new (static_cast<void*>(end())) Entry(entry.name, entry.value, known);
    }
  }
  /// An entry of each name and the value at its place, which are moved from.
  template <class Name, class Mapped>
  EntryRow(std::span<Name> names, std::span<Mapped> values) : EntryRow(names.size()) {
    TOOL_BINDING_ASSERT(names.size() == values.size());
    for (; size_ < capacity_; ++size_) {
      ::new (static_cast<void*>(end())) Entry(std::move(names[size_]), std::move(values[size_]));
    }
  }
  EntryRow(const EntryRow& other) : EntryRow(other, 0) {}
  EntryRow(EntryRow&& other) noexcept { swap(other); }

  /// The entries of `other`, each made into one of this row's, in their order.
  template <class Other>
  explicit EntryRow(EntryRow<Other>&& other) noexcept {
    static_assert(sizeof(Entry) == sizeof(Other) && alignof(Entry) == alignof(Other) &&
                  std::is_nothrow_constructible_v<Entry, Other&&>);
    auto* const block = static_cast<void*>(other.entries_);
    for (std::size_t index = 0; index < other.size_; ++index) {
      move_into(static_cast<Entry*>(block) + index, other.entries_ + index);
    }
    entries_ = static_cast<Entry*>(block);
    size_ = std::exchange(other.size_, 0);
    capacity_ = std::exchange(other.capacity_, 0);
    other.entries_ = nullptr;
  }

  EntryRow& operator=(EntryRow other) noexcept {
    swap(other);
    return *this;
  }
  ~EntryRow() {
    std::destroy_n(entries_, size_);
    give_back();
  }

  void swap(EntryRow& other) noexcept {
    std::swap(entries_, other.entries_);
    std::swap(size_, other.size_);
    std::swap(capacity_, other.capacity_);
  }

  void reserve(std::size_t count) {
    if (count > capacity_) {
      grow(count);
    }
  }

  /// Appends an entry. Its parts may belong to an entry of this row.
  template <class... Parts>
  void emplace_back(Parts&&... parts) {
    if (size_ < capacity_) {
      ::new (static_cast<void*>(end())) Entry(std::forward<Parts>(parts)...);
    } else {
      append_beyond_room(std::forward<Parts>(parts)...);
    }
    ++size_;
  }
  void pop_back() noexcept {
    TOOL_BINDING_ASSERT(!empty());
    std::destroy_at(entries_ + --size_);
  }

  /// Ends the entry at `index`; those after it move up.
  void erase(std::size_t index) noexcept {
    TOOL_BINDING_ASSERT(index < size_);
    std::destroy_at(entries_ + index);
    while (++index < size_) {
      move_into(entries_ + index - 1, entries_ + index);
    }
    --size_;
  }

  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  [[nodiscard]] bool empty() const noexcept { return size_ == 0; }
  [[nodiscard]] Entry& operator[](std::size_t index) noexcept {
    TOOL_BINDING_ASSERT(index < size_);
    return entries_[index];
  }
  [[nodiscard]] const Entry& operator[](std::size_t index) const noexcept {
    TOOL_BINDING_ASSERT(index < size_);
    return entries_[index];
  }
  [[nodiscard]] Entry& back() noexcept { return (*this)[size_ - 1]; }
  [[nodiscard]] Entry* begin() noexcept { return entries_; }
  [[nodiscard]] Entry* end() noexcept { return entries_ + size_; }
  [[nodiscard]] const Entry* begin() const noexcept { return entries_; }
  [[nodiscard]] const Entry* end() const noexcept { return entries_ + size_; }

 private:
  template <class Other>
  friend class EntryRow;
  static constexpr std::size_t fewest = 4;
  static constexpr std::size_t most = PTRDIFF_MAX / sizeof(Entry);
  static constexpr bool is_over_aligned = alignof(Entry) > __STDCPP_DEFAULT_NEW_ALIGNMENT__;

  /// Moves an entry into room that may be its own, and ends it.
  template <class Other>
  static void move_into(Entry* room, Other* entry) noexcept {
    Other moved(std::move(*entry));
    std::destroy_at(entry);
    ::new (static_cast<void*>(room)) Entry(std::move(moved));
  }

  /// An empty row with that room.
  explicit EntryRow(std::size_t capacity) : entries_(room_for(0, capacity)), capacity_(capacity) {}

  // The ordinary way is to append where there is room: the others are not inline.

  [[gnu::noinline]] void grow(std::size_t capacity) {
    EntryRow roomier(capacity);
    move_to(roomier);
  }

  /// Makes the entry before the others are moved: it may be made of one of them.
  template <class... Parts>
  [[gnu::noinline]] void append_beyond_room(Parts&&... parts) {
    EntryRow roomier(2 * size_ < fewest ? fewest : 2 * size_);
    ::new (static_cast<void*>(roomier.entries_ + size_)) Entry(std::forward<Parts>(parts)...);
    move_to(roomier);
  }

  /// Moves the entries into a roomier row, and becomes that row.
  void move_to(EntryRow& roomier) noexcept {
    static_assert(std::is_nothrow_move_constructible_v<Entry>);
    for (std::size_t index = 0; index < size_; ++index) {
      move_into(roomier.entries_ + index, entries_ + index);
    }
    roomier.size_ = std::exchange(size_, 0);
    swap(roomier);
  }

  /// Room for `more` entries than `held`, which there is room for.
  static Entry* room_for(std::size_t held, std::size_t more) {
    if (more > most - held) {
      throw_too_many_entries();
    }
    const std::size_t capacity = held + more;
    if (capacity == 0) {
      return nullptr;
    }
    if constexpr (is_over_aligned) {
      return static_cast<Entry*>(::operator new (capacity * sizeof(Entry), std::align_val_t{alignof(Entry)}));
    } else {
      return static_cast<Entry*>(::operator new(capacity * sizeof(Entry)));
    }
  }
  void give_back() noexcept {
    if (entries_ == nullptr) {
      return;
    }
    if constexpr (is_over_aligned) {
      ::operator delete (static_cast<void*>(entries_), std::align_val_t{alignof(Entry)});
    } else {
      ::operator delete(static_cast<void*>(entries_));
    }
  }

  Entry* entries_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace tool_binding::detail
