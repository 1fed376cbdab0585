// SPDX-License-Identifier: MIT
#pragma once

/// Preconditions that are checked where TOOL_BINDING_ASSERTIONS is defined, and cost nothing elsewhere. No layout and
/// no symbol of the library depends on it: a program may define it for itself alone, to have its own calls checked.
/// Nothing here is for a daemon's own use.
#ifdef TOOL_BINDING_ASSERTIONS

#include <cstdio>
#include <cstdlib>

namespace tool_binding::detail {

[[noreturn, gnu::cold, gnu::noinline]] inline void precondition_failed(const char* condition, const char* file,
                                                                       int line) noexcept {
  std::fprintf(stderr, "%s:%d: a precondition does not hold: %s\n", file, line, condition);
  std::abort();
}

}  // namespace tool_binding::detail

#define TOOL_BINDING_ASSERT(condition) \
  ((condition) ? static_cast<void>(0) : ::tool_binding::detail::precondition_failed(#condition, __FILE__, __LINE__))
#else
#define TOOL_BINDING_ASSERT(condition) static_cast<void>(sizeof(!(condition)))
#endif
