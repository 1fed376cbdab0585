// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/text.hpp"
#include "tool_binding/tool_registry.hpp"
#include "tool_binding/value.hpp"

/// The admission of a request as data.
///
/// `normalize_arguments` is `admit` and a throw. Whoever wants to count synonyms, fill the data of an error, or answer
/// a refusal without an exception asks `admit`, and reads findings instead of sentences.
namespace tool_binding {

/// One thing that admission found: a note, which informs, or a problem, which refuses the request.
///
/// What does not apply to a kind is empty or null. A finding refers to the record of its tool, and lives as long as any
/// copy of that record; the tools of a table live as long as the table.
struct TOOL_BINDING_API Finding {
  enum class Kind : std::uint8_t {
    // notes
    synonym_read,         ///< an argument was read as the parameter that its name is a synonym of
    synonym_left_out,     ///< a synonym was left out: its parameter was given too
    action_synonym_read,  ///< an action was named by another name than its declared one
    below_minimum,        ///< a number was replaced by the minimum
    above_maximum,        ///< a number was replaced by the maximum
    // problems
    unknown_parameter,  ///< the tool takes no argument of that name
    unknown_action,     ///< the tool has no action of that name
    unexpected_action,  ///< the tool has no actions, and was given one
    missing_action,     ///< the tool has actions but no default, and was given none
    wrong_type,         ///< a value that cannot be read as its parameter's type
    unlisted_value,     ///< a value that names none of its parameter's enumeration
    missing_parameter,  ///< a parameter that the call needs was not given
  };

  Kind kind = {};
  Text argument = {};                    ///< the argument's name as sent; none for a missing parameter or action
  const ParamSpec* parameter = nullptr;  ///< the declared parameter
  Value sent = {};                       ///< the argument's value as sent
  Value read = {};                       ///< what `sent` was read as: the number beyond a bound, the item not listed
  Value used = {};                       ///< what is used instead: a bound, the action's declared name
  Text proposal = {};                    ///< the nearest declared name, where one is near
  Text action = {};                      ///< the action that needs a missing parameter
  const detail::ToolRecord* tool = nullptr;

  /// The finding in words: one line of the notes, or one of the problems that a refusal joins.
  [[nodiscard]] std::string message() const;
};

/// The stable snake_case word of a kind, such as "unknown_parameter". Lives as long as the process.
[[nodiscard]] TOOL_BINDING_API std::string_view word_of(Finding::Kind kind) noexcept;

/// Whether findings of that kind refuse the request.
[[nodiscard]] constexpr bool is_problem(Finding::Kind kind) noexcept {
  return kind >= Finding::Kind::unknown_parameter;
}

/// Whether a request is admitted, and what was found of it. Refers to the record of its tool, as its findings do. One
/// that is moved from has neither arguments nor findings.
class TOOL_BINDING_API Verdict {
 public:
  /// Whether the request is admitted: it has no problems.
  [[nodiscard]] bool is_admitted() const noexcept { return !has_problems_; }

  /// Notes and problems in the order in which they were found.
  [[nodiscard]] std::span<const Finding> findings() const& noexcept TOOL_BINDING_LIFETIMEBOUND;
  [[nodiscard]] std::vector<Finding> findings() && noexcept { return std::move(findings_); }

  /// Whether the request named a parameter or an action by a synonym.
  [[nodiscard]] bool alias_hit() const noexcept { return alias_hit_; }

  /// The messages of the notes, and those of the problems, each in their order.
  [[nodiscard]] std::vector<std::string> notes() const {
    return findings_.empty() ? std::vector<std::string>() : messages(false);
  }
  [[nodiscard]] std::vector<std::string> problems() const { return messages(true); }

  /// The messages of the problems joined by "; ": what an ArgumentError says. Empty for an admitted request.
  [[nodiscard]] Text refusal() const;

 protected:
  Verdict() noexcept = default;

  std::vector<Finding> findings_;
  bool alias_hit_ = false;
  bool has_problems_ = false;

 private:
  [[nodiscard]] std::vector<std::string> messages(bool of_problems) const;
};

/// What came of a request: the arguments as its tool's handler takes them, or the problems for which it is refused.
class TOOL_BINDING_API Admission : public Verdict {
 public:
  /// The arguments under their declared names and types, within their bounds, as `NormalizedArguments` has them. Of a
  /// refused request those that are no problem.
  [[nodiscard]] const ArgumentMap& arguments() const& noexcept TOOL_BINDING_LIFETIMEBOUND { return arguments_; }
  [[nodiscard]] ArgumentMap arguments() && noexcept { return std::move(arguments_); }

 private:
  friend Admission admit(const ToolSpec& tool, const ArgumentMap& arguments);

  ArgumentMap arguments_;
};

/// Admits one request. A request that the tool cannot take is an answer like any other, and is not thrown. Throws
/// KeyError for an argument of a parameter whose type word is none of the five, TypeError for one of a parameter with a
/// bound that is not a number (both are faults of the declaration), and std::overflow_error for a number that no double
/// can hold.
[[nodiscard]] TOOL_BINDING_API Admission admit(const ToolSpec& tool, const ArgumentMap& arguments);
[[nodiscard]] inline Admission admit(std::string_view tool, const ArgumentMap& arguments) {
  return admit(TOOLS[tool], arguments);
}

}  // namespace tool_binding
