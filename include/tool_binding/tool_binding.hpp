// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/admission.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/tool_registry.hpp"
#include "tool_binding/value.hpp"

/// The layer between a tool request and its handler: seven names, in the order in which a request meets them.
///
/// A request is admitted (`normalize_arguments`), bound (`bind_arguments`) and made into the keywords that its handler
/// is called with (`handler_kwargs`). A handler asks `action_default` and `missing_arguments` for what the registry
/// knows. All functions only read their inputs and the registry, return what is the caller's own, and may be called
/// from any number of threads at once. Where a tool is given by name it is looked up in `TOOLS`, and UnknownToolError
/// says that there is none; the tool of any other table is given as its ToolSpec. A ToolSpec answers for itself: its
/// own default action and its own parameters count, whatever `TOOLS` holds under its name.
namespace tool_binding {

/// An admitted request: its arguments as the tool's handler takes them, and what was changed to get there. Immutable;
/// may be moved from as a whole, and then holds neither arguments nor notes.
class TOOL_BINDING_API NormalizedArguments {
 public:
  explicit NormalizedArguments(ArgumentMap arguments, std::vector<std::string> notes = {},
                               bool alias_hit = false) noexcept
      : arguments_(std::move(arguments)), notes_(std::move(notes)), alias_hit_(alias_hit) {}

  /// The admission of a request that is admitted, its notes put into words.
  [[nodiscard]] static NormalizedArguments of(Admission&& admission) { return {PutIntoWords(), std::move(admission)}; }

  /// The arguments under their declared names and types, within their bounds, none of them null, in the order in which
  /// admission stored them; the action's declared name under `ACTION_PARAM` for a tool with actions.
  [[nodiscard]] const ArgumentMap& arguments() const& noexcept TOOL_BINDING_LIFETIMEBOUND { return arguments_; }
  [[nodiscard]] ArgumentMap arguments() && noexcept { return std::move(arguments_); }

  /// A line for each change that the caller should know of, in the order of the request's arguments.
  [[nodiscard]] std::span<const std::string> notes() const& noexcept TOOL_BINDING_LIFETIMEBOUND;
  [[nodiscard]] std::vector<std::string> notes() && noexcept { return std::move(notes_); }

  /// Whether the request named a parameter or an action by a synonym.
  [[nodiscard]] bool alias_hit() const noexcept { return alias_hit_; }

  friend bool operator==(const NormalizedArguments&, const NormalizedArguments&) = default;

 private:
  struct PutIntoWords {};
  NormalizedArguments(PutIntoWords /*unused*/, Admission&& admission)
      : arguments_(std::move(admission).arguments()),
        notes_(admission.notes()),  // NOLINT(bugprone-use-after-move): its arguments alone were moved
        alias_hit_(admission.alias_hit()) {}

  ArgumentMap arguments_;
  std::vector<std::string> notes_;
  bool alias_hit_;
};

namespace detail {

/// The error that says why a request is refused.
[[nodiscard]] TOOL_BINDING_API ArgumentError argument_error(const ToolSpec& tool, Admission&& admission);

}  // namespace detail

/// Admits one request: `admit`, and a throw. Throws ArgumentError with every problem of the request, and what `admit`
/// throws.
[[nodiscard, gnu::always_inline]] inline NormalizedArguments normalize_arguments(const ToolSpec& tool,
                                                                                 const ArgumentMap& arguments) {
  Admission admission = admit(tool, arguments);
  if (!admission.is_admitted()) {
    // Thrown from the caller's own frame: each frame that an error passes costs as much as the rest of a refusal.
    throw detail::argument_error(tool, std::move(admission));
  }
  return NormalizedArguments::of(std::move(admission));
}
[[nodiscard]] inline NormalizedArguments normalize_arguments(std::string_view tool, const ArgumentMap& arguments) {
  return normalize_arguments(TOOLS[tool], arguments);
}

/// The refusal of a call that runs `action` and does not give what it needs, null when nothing is missing. `arguments`
/// are kept under declared names; blank text and empty lists count as not given.
[[nodiscard]] TOOL_BINDING_API std::optional<std::string> missing_arguments(std::string_view tool, ActionName action,
                                                                            const ArgumentMap& arguments);
[[nodiscard]] TOOL_BINDING_API std::optional<std::string> missing_arguments(const ToolSpec& tool, ActionName action,
                                                                            const ArgumentMap& arguments);

namespace detail {
[[nodiscard]] TOOL_BINDING_API std::optional<std::string> missing_keywords(const ToolSpec& tool, ActionName action,
                                                                           const KeywordArguments& keywords);
}

/// The same for the keywords of a handler, as they are: a context item in an argument's place is given.
template <std::same_as<KeywordArguments> Keywords>
[[nodiscard]] std::optional<std::string> missing_arguments(std::string_view tool, ActionName action,
                                                           const Keywords& keywords) {
  return detail::missing_keywords(TOOLS[tool], action, keywords);
}
template <std::same_as<KeywordArguments> Keywords>
[[nodiscard]] std::optional<std::string> missing_arguments(const ToolSpec& tool, ActionName action,
                                                           const Keywords& keywords) {
  return detail::missing_keywords(tool, action, keywords);
}

/// Binds admitted arguments: the action first, for a tool with actions; then every declared parameter in the
/// registry's order, with the request's value or its default; nothing else. Arguments that are the caller's to give
/// away are moved, which spares the counting of references.
[[nodiscard]] TOOL_BINDING_API ArgumentMap bind_arguments(std::string_view tool, const ArgumentMap& arguments);
[[nodiscard]] TOOL_BINDING_API ArgumentMap bind_arguments(std::string_view tool, ArgumentMap&& arguments);
[[nodiscard]] TOOL_BINDING_API ArgumentMap bind_arguments(const ToolSpec& tool, const ArgumentMap& arguments);
[[nodiscard]] TOOL_BINDING_API ArgumentMap bind_arguments(const ToolSpec& tool, ArgumentMap&& arguments);

/// What a request that runs `action` and leaves the parameter `name` out gets. Throws LookupError for a name that the
/// tool does not declare.
[[nodiscard]] TOOL_BINDING_API Value action_default(std::string_view tool, std::string_view name,
                                                    std::string_view action);
[[nodiscard]] TOOL_BINDING_API Value action_default(const ToolSpec& tool, std::string_view name,
                                                    std::string_view action);

/// The keyword arguments for `handler`: every bound argument, then the items of `context` that the handler names, or
/// all of them when it takes any keyword. An item replaces a bound argument of its name, in its place. Bound arguments
/// that are the caller's to give away are moved.
[[nodiscard]] TOOL_BINDING_API KeywordArguments handler_kwargs(const Handler& handler, const ArgumentMap& bound,
                                                               const KeywordArguments& context);
[[nodiscard]] TOOL_BINDING_API KeywordArguments handler_kwargs(const Handler& handler, ArgumentMap&& bound,
                                                               const KeywordArguments& context);

}  // namespace tool_binding
