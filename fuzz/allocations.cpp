// SPDX-License-Identifier: MIT
#include "allocations.hpp"

#include <cstdlib>
#include <limits>
#include <new>

namespace tool_binding::fuzz {
namespace {

constexpr std::size_t never = std::numeric_limits<std::size_t>::max();

std::size_t blocks = 0;
std::size_t granted_before = never;  ///< allocations that are granted before the first refusal
bool only_one = false;
bool any_refused = false;

bool refuses() noexcept {
  if (granted_before == never) {
    return false;
  }
  if (granted_before > 0) {
    --granted_before;
    return false;
  }
  any_refused = true;
  granted_before = only_one ? never : 0;
  return true;
}

/// Null for a block that is refused.
void* allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) noexcept {
  const std::size_t whole = (size + alignment - (size == 0 ? 0 : 1)) / alignment * alignment;
  void* const block = refuses() ? nullptr : std::aligned_alloc(alignment, whole);
  blocks += block == nullptr ? 0 : 1;
  return block;
}

void* allocate_or_throw(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
  if (void* const block = allocate(size, alignment); block != nullptr) {
    return block;
  }
  throw std::bad_alloc();
}

void release(void* block) noexcept {
  blocks -= block == nullptr ? 0 : 1;
  std::free(block);
}

}  // namespace

std::size_t live_blocks() noexcept { return blocks; }

Refusing::Refusing(std::size_t first, bool once) noexcept {
  granted_before = first;
  only_one = once;
  any_refused = false;
}

Refusing::~Refusing() { granted_before = never; }

bool Refusing::refused() const noexcept { return any_refused; }

}  // namespace tool_binding::fuzz

using tool_binding::fuzz::allocate;
using tool_binding::fuzz::allocate_or_throw;
using tool_binding::fuzz::release;

void* operator new(std::size_t size) { return allocate_or_throw(size); }
void* operator new[](std::size_t size) { return allocate_or_throw(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocate_or_throw(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }
