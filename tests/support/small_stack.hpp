// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <functional>

namespace tool_binding {

/// Runs `work` on a thread whose stack holds a few thousand calls: what recurses once a level of a value ends there.
inline void on_a_small_stack(std::function<void()> work) {
  constexpr std::size_t stack_size = 256 * 1024;
  pthread_attr_t attributes;
  pthread_t thread;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, stack_size), 0);
  const auto run = [](void* given) -> void* {
    (*static_cast<std::function<void()>*>(given))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  ASSERT_EQ(pthread_join(thread, nullptr), 0);
  pthread_attr_destroy(&attributes);
}

}  // namespace tool_binding
