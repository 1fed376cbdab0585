// SPDX-License-Identifier: MIT
#pragma once

/// Marks a function whose result lives no longer than the object it is called on, and a parameter that the result or
/// the object made of it refers to. A compiler that knows the attribute warns of a view that outlives a temporary.
/// Nothing here is for a daemon's own use.
#if defined(__has_cpp_attribute)
#if __has_cpp_attribute(clang::lifetimebound)
#define TOOL_BINDING_LIFETIMEBOUND [[clang::lifetimebound]]
#endif
#endif
#ifndef TOOL_BINDING_LIFETIMEBOUND
#define TOOL_BINDING_LIFETIMEBOUND
#endif
