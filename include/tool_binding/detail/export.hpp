// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <version>

/// Marks what a shared library shows; the rest of it is hidden.
/// Nothing here is for a daemon's own use.
#define TOOL_BINDING_API __attribute__((visibility("default")))

#ifdef __clang__
static_assert(__clang_major__ >= 14, "tool_binding needs GCC 12 or Clang 14, or a later one");
#else
static_assert(__GNUC__ >= 12, "tool_binding needs GCC 12 or Clang 14, or a later one");
#endif
#ifndef __GLIBCXX__
static_assert(false, "tool_binding needs libstdc++");
#endif
static_assert(sizeof(void*) == 8 && std::endian::native == std::endian::little,
              "tool_binding needs a 64-bit little-endian machine");
