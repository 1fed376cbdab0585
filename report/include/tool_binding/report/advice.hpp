// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/report/report.hpp"

/// What to declare otherwise, as far as a report has the evidence for it.
namespace tool_binding::report {

/// The rules, and what each asks for before it says anything.
enum class Rule : std::uint8_t {
  add_synonym,         ///< an unknown name is sent in place of one parameter
  add_action_synonym,  ///< an unknown action is near one that is declared
  add_value,           ///< a value that an enumeration lacks comes again and again
  widen_bound,         ///< many numbers are beyond a bound
  add_default,         ///< most calls leave out what they need
  drop_unused,         ///< nobody used it in so many requests
};

/// What a rule asks for: counts and shares that are less are too thin to say anything.
struct Evidence {
  std::uint64_t least_times;  ///< occurrences; of `drop_unused` requests without one
  double least_share;         ///< of what the advice is about, from 0 to 1
  std::string_view words;     ///< the rule in a sentence
};

[[nodiscard]] TOOL_BINDING_API std::string_view word_of(Rule rule) noexcept;
[[nodiscard]] TOOL_BINDING_API const Evidence& evidence_for(Rule rule) noexcept;

/// One thing to declare otherwise.
struct Advice {
  Rule rule;
  Text tool;
  Text subject = {};        ///< the parameter or action; empty where it is about several
  std::string words;        ///< what to do
  std::string evidence;     ///< the counts that it follows from
  std::string lines = {};   ///< the members to put into the subject's object in the registry; empty for what can go
  std::uint64_t times = 0;  ///< the occurrences behind it
  Example example = {};     ///< one of them; no line where there is none
};

/// All that the rules say of a report: what has the most occurrences behind it first, what can go last.
[[nodiscard]] TOOL_BINDING_API std::vector<Advice> advice_on(const Report& report);

}  // namespace tool_binding::report
