// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/text.hpp"

/// How often names and values came, in bounded memory.
namespace tool_binding::report {

/// One request that shows something, and where it is.
struct Example {
  Text file = {};          ///< as the caller named it
  std::uint64_t line = 0;  ///< counted from 1
  Text request = {};       ///< its text, cut where it is long

  friend bool operator==(const Example&, const Example&) = default;
};

/// `text` as an example shows it: cut before the code point that would make it longer than 240 bytes, with "…" for the
/// rest.
[[nodiscard]] TOOL_BINDING_API Text shortened(std::string_view text);

/// How often one name or value came.
struct Count {
  std::uint64_t times = 0;
  Text proposal = {};                          ///< the nearest declared name, where one is near
  std::map<Text, std::uint64_t> lacking = {};  ///< of an unknown name: the parameters that it may stand for, needed
                                               ///< or near and not given, and in how many of its calls
  Example example = {};                        ///< the first request
};

/// Names and values with their counts: exact up to a limit, and heavy hitters beyond it.
///
/// When one more than `limit` different ones have come, all counts are lowered by the same number, so that at most half
/// of them are left: a count is then too low by at most `shortfall()`, and what is not held came at most so often. The
/// shortfall is at most twice the number of all occurrences, divided by the limit. What is held depends on the order of
/// the occurrences, and on nothing else.
class TOOL_BINDING_API Counts {
 public:
  explicit Counts(std::size_t limit) : limit_(limit) {}

  /// The count of `what`, new where it was not held. Lives until the next call that may change what is held.
  Count& operator[](const Text& what);

  /// Adds the counts of later occurrences: their shortfalls add up as well.
  void merge(const Counts& later);

  [[nodiscard]] const std::map<Text, Count>& all() const noexcept { return counts_; }
  [[nodiscard]] bool is_exact() const noexcept { return shortfall_ == 0; }
  [[nodiscard]] std::uint64_t shortfall() const noexcept { return shortfall_; }
  void set_shortfall(std::uint64_t shortfall) noexcept { shortfall_ = shortfall; }

  /// All that is held, what came most often first, in the order of the bytes among those that came equally often.
  /// Lives until the counts are changed.
  [[nodiscard]] std::vector<const std::pair<const Text, Count>*> most_frequent() const;

 private:
  void lower();

  std::size_t limit_;
  std::map<Text, Count> counts_;
  std::uint64_t shortfall_ = 0;
};

}  // namespace tool_binding::report
