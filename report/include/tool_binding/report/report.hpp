// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/admission.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/report/counts.hpp"
#include "tool_binding/tool_registry.hpp"

/// What the callers of a registry's tools get right and wrong, counted over recorded requests.
namespace tool_binding::report {

/// What can be seen of a request: each kind of finding, in the order of `Finding::Kind`, and what changes or ends a
/// request without one.
enum class Seen : std::uint8_t {
  synonym_read,
  synonym_left_out,
  action_synonym_read,
  below_minimum,
  above_maximum,
  unknown_parameter,
  unknown_action,
  unexpected_action,
  missing_action,
  wrong_type,
  unlisted_value,
  missing_parameter,
  coerced,           ///< a value was read as its parameter's type, or as a declared value that is spelled otherwise
  blank_left_out,    ///< blank text was read as an argument left out
  number_too_large,  ///< a number that no double can hold
  unknown_tool,      ///< no tool has that name
  no_request,        ///< a line that is no request
};

/// The stable snake_case word of a kind: that of the finding where it is one.
[[nodiscard]] TOOL_BINDING_API std::string_view word_of(Seen seen) noexcept;

/// How requests ended. A repaired one was admitted after something was read otherwise than it was sent.
struct TOOL_BINDING_API Outcomes {
  std::uint64_t clean = 0;
  std::uint64_t repaired = 0;
  std::uint64_t refused = 0;

  [[nodiscard]] std::uint64_t total() const noexcept { return clean + repaired + refused; }
  Outcomes& operator+=(const Outcomes& other) noexcept;
  friend bool operator==(const Outcomes&, const Outcomes&) = default;
};

/// One kind of sight for one parameter, with the names or values that were seen.
struct TOOL_BINDING_API Row {
  /// Stands for no parameter.
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  explicit Row(std::size_t limit) : values(limit) {}

  std::uint64_t times = 0;
  Counts values;        ///< by name or value; of a missing parameter by action, of a coerced one by the two kinds
  Value smallest = {};  ///< of the numbers beyond a bound
  Value largest = {};
  Value bound = {};  ///< the bound that they were beyond

  void merge(const Row& later);
  /// Widens the spread to hold `number`.
  void spread_to(const Value& number);
};

/// What the requests to one tool come to.
struct ToolUse {
  explicit ToolUse(const ToolSpec& spec) : tool(spec), given(tool.params().size()) {}

  ToolSpec tool;
  Outcomes outcomes = {};
  std::map<Text, Outcomes> actions = {};  ///< by the action that was run, of a tool that has actions; the empty name
                                          ///< for requests that were refused before one was known
  std::vector<std::uint64_t> given;       ///< how many requests gave each parameter, in declared order
  std::map<std::pair<Seen, std::size_t>, Row> rows = {};  ///< by kind and place of the parameter

  [[nodiscard]] bool is_used() const noexcept { return outcomes.total() != 0; }
};

/// All that was counted.
struct TOOL_BINDING_API Report {
  /// An empty report on the tools of a table.
  explicit Report(const ToolTable& table);
  /// One that is to be filled by hand.
  explicit Report(std::size_t most_names) : limit(most_names), unknown_tools(most_names), no_requests(most_names) {}

  std::size_t limit;           ///< the different names or values that a row counts exactly
  std::vector<ToolUse> tools;  ///< in declared order
  Row unknown_tools;           ///< requests for tools that are not declared; each counts as refused
  Row no_requests;             ///< lines that are no requests, by what is wrong with them

  /// The requests of all tools, and those for none.
  [[nodiscard]] Outcomes outcomes() const noexcept;

  /// Adds what was counted over other requests to the same tools, as if they came later: equal to one report over both,
  /// as long as every row counts exactly. Throws ValueError for a report on other tools, or on tools that are declared
  /// otherwise.
  void merge(const Report& later);
};

/// A report as data for programs, with the advice that follows from it; an object that `report_of` reads.
[[nodiscard]] TOOL_BINDING_API Value report_value(const Report& report);

/// The report that a value spells. Throws ValueError for any other value.
[[nodiscard]] TOOL_BINDING_API Report report_of(const Value& value);

}  // namespace tool_binding::report
