// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/text.hpp"

/// The errors of the layer. Each carries one message and copies it without allocating.
///
/// Two failures of other origin pass through every function of the layer: std::overflow_error for a number that no
/// double can hold, and std::bad_alloc.
namespace tool_binding {

struct Finding;
namespace detail {
struct Refusal;
}

/// What all errors of the layer share.
class TOOL_BINDING_API Error : public std::exception {
 public:
  explicit Error(Text message) noexcept : message_(std::move(message)) {}

  /// The whole message, zero-terminated. A name that holds a zero byte ends it early: `message()` does not.
  [[nodiscard]] const char* what() const noexcept TOOL_BINDING_LIFETIMEBOUND override { return message_.c_str(); }

  /// The whole message, as long as this object lives.
  [[nodiscard]] std::string_view message() const noexcept TOOL_BINDING_LIFETIMEBOUND { return message_.view(); }

 private:
  Text message_;
};

/// A value of an accepted kind with content that is not.
class TOOL_BINDING_API ValueError : public Error {
 public:
  using Error::Error;
};

/// A value of a kind that is not accepted.
class TOOL_BINDING_API TypeError : public Error {
 public:
  using Error::Error;
};

/// A name that is not found.
class TOOL_BINDING_API LookupError : public Error {
 public:
  using Error::Error;
};

/// A key that a table does not hold: a tool that is not declared, a type word that is none of the five, or a name that
/// is asked of a map.
class TOOL_BINDING_API KeyError : public LookupError {
 public:
  using LookupError::LookupError;
};

/// A tool that a table does not hold: the fault of whoever asked for it, where any other KeyError is a declaration's.
class TOOL_BINDING_API UnknownToolError : public KeyError {
 public:
  using KeyError::KeyError;
};

/// The arguments of a request that its tool cannot take. The message names every problem, joined by "; ", and says
/// what to send instead.
class TOOL_BINDING_API ArgumentError : public ValueError {
 public:
  using ValueError::ValueError;
  ArgumentError(Text message, std::shared_ptr<const detail::Refusal> refusal) noexcept
      : ValueError(std::move(message)), refusal_(std::move(refusal)) {}

  /// The notes and problems of the request as data, in the order in which they were found; nothing for an error that
  /// was made of a message alone. Lives as long as any copy of this error.
  [[nodiscard]] std::span<const Finding> findings() const noexcept;

 private:
  std::shared_ptr<const detail::Refusal> refusal_;
};

}  // namespace tool_binding
