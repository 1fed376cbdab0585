// SPDX-License-Identifier: MIT
#include "allocations.hpp"

#include <cstdlib>
#include <new>

namespace {

std::size_t counted = 0;

}  // namespace

std::size_t tool_binding::bench::allocations() noexcept { return counted; }

void* operator new(std::size_t size) {
  ++counted;
  if (void* const room = std::malloc(size == 0 ? 1 : size)) {
    return room;
  }
  throw std::bad_alloc();
}

void operator delete(void* room) noexcept { std::free(room); }
void operator delete(void* room, std::size_t /*size*/) noexcept { std::free(room); }
