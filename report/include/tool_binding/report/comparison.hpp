// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_binding/report/pages.hpp"
#include "tool_binding/report/report.hpp"

/// What a changed registry does to recorded requests.
namespace tool_binding::report {

/// How the answer to a request differs, what is worst for its caller first.
enum class Change : std::uint8_t {
  now_refused,      ///< it was admitted
  other_arguments,  ///< admitted with other arguments: it means something else
  other_keywords,   ///< the same arguments, and the handler is called with other keywords
  now_admitted,     ///< it was refused
  other_words,      ///< other notes, or refused in other words
};

/// The stable snake_case word of a change.
[[nodiscard]] TOOL_BINDING_API std::string_view word_of(Change change) noexcept;

/// Whether a request that changes so means something else to its caller, or nothing any more.
[[nodiscard]] TOOL_BINDING_API bool is_worse(Change change) noexcept;

/// The tools of a registry, and the handlers by whose signatures their keywords are made.
struct Registry {
  ToolTable tools = {};
  Handlers handlers = {};
};

/// What a registry answers to a request.
struct Answer {
  bool is_admitted = false;
  ArgumentMap arguments = {};
  ArgumentMap keywords = {};
  std::vector<std::string> notes = {};
  std::string_view error = {};  ///< the type of the error, and its words
  Text message = {};
  std::vector<Finding> findings = {};
};

/// An answer as data: {"arguments": …, "notes": …, "keywords": …} or {"error": …, "message": …}.
[[nodiscard]] TOOL_BINDING_API Value answer_value(const Answer& answer);

/// A request that is answered otherwise.
struct Difference {
  Change change = {};
  Text cause = {};  ///< what it comes from: the kind of the first new problem and its parameter, or the first argument
                    ///< or keyword that differs; empty where nothing of the kind is known
  Answer before = {};
  Answer after = {};
};

/// The change of one request, no value where both registries answer alike. Throws only what admission throws for a
/// faulty declaration. May be called by several threads at once.
[[nodiscard]] TOOL_BINDING_API std::optional<Difference> compare(const Registry& before, const Registry& after,
                                                                 const Text& tool, const ArgumentMap& arguments);

/// A tool that the changed registry lacks.
struct GoneTool {
  Text name;
  Text renamed_to;  ///< the new tool that takes the same parameters and actions; empty where there is not one such tool
};

/// The tools of `before` that `after` lacks, in their order.
[[nodiscard]] TOOL_BINDING_API std::vector<GoneTool> gone_tools(const Registry& before, const Registry& after);

/// What was counted over all requests.
struct TOOL_BINDING_API Comparison {
  /// The tool, the change and its cause: as many as registries make, whatever callers send.
  using Key = std::tuple<Text, Change, Text>;

  /// The requests that changed alike, and the first of them.
  struct Changed {
    std::uint64_t times = 0;
    Example example = {};
    Value before = {};
    Value after = {};
  };

  std::uint64_t requests = 0;
  std::map<Key, Changed> changes = {};
  Row no_requests{1024};  ///< lines that are no requests
  std::vector<GoneTool> gone = {};

  [[nodiscard]] std::uint64_t times(Change change) const noexcept;
};

/// The comparison for programs, and for people.
[[nodiscard]] TOOL_BINDING_API Value comparison_value(const Comparison& comparison);
[[nodiscard]] TOOL_BINDING_API std::string text_page(const Comparison& comparison, const TextStyle& style);

}  // namespace tool_binding::report
