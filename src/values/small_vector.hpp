// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace tool_binding {

/// A vector of plain items that is kept on the stack up to `here` of them, as most are, and on the heap beyond.
template <class Item, std::size_t here>
class SmallVector {
  static_assert(std::is_trivially_copyable_v<Item> && std::is_trivially_destructible_v<Item>);

 public:
  SmallVector() noexcept = default;
  SmallVector(std::size_t count, const Item& item) { assign(count, item); }
  SmallVector(const SmallVector&) = delete;
  SmallVector& operator=(const SmallVector&) = delete;

  void push_back(const Item& item) {
    if (size_ == capacity_) {
      grow_to(2 * size_);
    }
    std::construct_at(items_ + size_++, item);
  }
  void pop_back() noexcept { --size_; }

  /// Becomes `count` copies of `item`.
  void assign(std::size_t count, const Item& item) {
    size_ = 0;
    if (count > capacity_) {
      grow_to(count);
    }
    std::uninitialized_fill_n(items_, count, item);
    size_ = count;
  }

  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  [[nodiscard]] bool empty() const noexcept { return size_ == 0; }
  [[nodiscard]] Item* data() noexcept { return items_; }
  [[nodiscard]] const Item* data() const noexcept { return items_; }
  [[nodiscard]] Item* begin() noexcept { return items_; }
  [[nodiscard]] Item* end() noexcept { return items_ + size_; }
  [[nodiscard]] Item& operator[](std::size_t place) noexcept { return items_[place]; }
  [[nodiscard]] const Item& operator[](std::size_t place) const noexcept { return items_[place]; }
  [[nodiscard]] Item& back() noexcept { return items_[size_ - 1]; }

 private:
  [[gnu::noinline]] void grow_to(std::size_t capacity) {
    auto roomier = std::make_unique<Item[]>(capacity);
    std::copy_n(items_, size_, roomier.get());
    elsewhere_ = std::move(roomier);
    items_ = elsewhere_.get();
    capacity_ = capacity;
  }

  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): made as far as it is used
  alignas(Item) std::array<std::byte, here * sizeof(Item)> here_;
  std::unique_ptr<Item[]> elsewhere_;
  Item* items_ = reinterpret_cast<Item*>(here_.data());
  std::size_t size_ = 0;
  std::size_t capacity_ = here;
};

}  // namespace tool_binding
