// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/tool_registry.hpp"

/// What is wrong or doubtful in a list of tool declarations, wherever they come from.
///
/// A daemon asks once, at start-up; no request waits for any of this. Errors make a declaration unusable. Warnings name
/// what works and probably not as it was meant.
namespace tool_binding {

/// One entry of a registry: a tool, and the handler that answers it. The check reads the handler's signature only.
struct RegistryEntry {
  ToolDeclaration tool;
  Handler handler = {};
};

/// One thing that is wrong or doubtful.
struct RegistryFinding {
  enum class Kind : std::uint8_t {
    // errors
    shape,              ///< what was read is not a declaration; found by readers of files only
    empty_name,         ///< of a tool, an action, a parameter or a synonym
    repeated_name,      ///< declared twice
    synonym_of_name,    ///< a synonym that is also a declared name
    repeated_synonym,   ///< a synonym that is another's already
    type_word,          ///< none of the five
    bound,              ///< no number
    undeclared_action,  ///< a reference to an action that is not declared
    // errors of a handler that lists types
    undeclared_parameter,  ///< an argument that the tool does not declare
    unlisted_parameter,    ///< a parameter that the tool declares and the handler does not list
    argument_type,         ///< a type that does not take what the parameter is given as
    null_argument,         ///< a type that takes no null, for a parameter that can be left out
    argument_value,        ///< a default that the type does not take
    open_enumeration,      ///< an enumeration, for a parameter that allows any text
    no_enumerator,         ///< a declared value that the enumeration lacks
    unoffered_item,        ///< a context item that the daemon does not offer
    item_type,             ///< a context item that the daemon does not offer as that type
    // warnings
    crossed_bounds,         ///< a minimum above the maximum
    idle_bound,             ///< a bound that has no effect
    refused_default,        ///< a default that its own parameter would refuse
    changed_default,        ///< a default that its own parameter would change
    unmatched_value,        ///< an enumeration value that no argument can name
    shadowed_value,         ///< an enumeration value that is read as an earlier one
    kept_name,              ///< a parameter whose argument admission keeps for itself
    unmatched_synonym,      ///< a synonym that no action can be reached by
    shadowed_synonym,       ///< a synonym that is read as another action
    keyword_without_taker,  ///< a bound name that the handler does not declare
    idle_items_type,        ///< a type of items that admission does not read them as
    unusual_name,           ///< a name that common clients refuse
    unusual_size            ///< more tools, or more of one tool, than common clients take
  };

  Kind kind;
  std::string place;     ///< where it is, as "tools[3].params[0].type"
  std::string words;     ///< what is wrong there
  std::size_t line = 0;  ///< the line of the file, counted from 1; 0 when it is not known

  friend bool operator==(const RegistryFinding&, const RegistryFinding&) = default;
};

/// Whether such a finding makes the registry unusable.
[[nodiscard]] TOOL_BINDING_API bool is_error(RegistryFinding::Kind kind) noexcept;

/// What makes these entries unusable. Names of parameters and actions are compared exactly. Of two that clash,
/// the later one is the fault. Context items are judged where the context that the daemon offers is known.
[[nodiscard]] TOOL_BINDING_API std::vector<RegistryFinding> registry_errors(std::span<const RegistryEntry> entries,
                                                                            const KeywordArguments* offered = nullptr);

/// What is doubtful in these entries. What `registry_errors` names is not named again.
[[nodiscard]] TOOL_BINDING_API std::vector<RegistryFinding> registry_warnings(std::span<const RegistryEntry> entries);

/// The errors, then the warnings.
[[nodiscard]] TOOL_BINDING_API std::vector<RegistryFinding> check_registry(std::span<const RegistryEntry> entries,
                                                                           const KeywordArguments* offered = nullptr);

/// A registry that cannot be used. Its message has a line for each fault:
/// "line 12: tools[3].params[0].type: " and what is wrong there; the line only where it is known.
class TOOL_BINDING_API RegistryError : public ValueError {
 public:
  /// Precondition: `faults` is not empty.
  explicit RegistryError(std::vector<RegistryFinding> faults);

  /// Every fault. Lives as long as any copy of this error.
  [[nodiscard]] std::span<const RegistryFinding> faults() const noexcept { return *faults_; }

 private:
  std::shared_ptr<const std::vector<RegistryFinding>> faults_;
};

/// The handlers by the names of their tools.
using Handlers = OrderedMap<Handler>;

/// Checks the entries, adds their tools to the table and returns their handlers, each as it answers its tool. Throws
/// RegistryError with every error, a name that the table holds already included, and then has added none. Warnings are
/// for `registry_warnings` to say. `offered` is the context that the daemon offers, or one that stands for it: items of
/// the same names and types. Without it no context item is checked.
[[nodiscard]] TOOL_BINDING_API Handlers declare_tools(ToolTable& table, std::vector<RegistryEntry> entries,
                                                      const KeywordArguments& offered);
[[nodiscard]] TOOL_BINDING_API Handlers declare_tools(ToolTable& table, std::vector<RegistryEntry> entries);
/// The same with `TOOLS`.
[[nodiscard]] TOOL_BINDING_API Handlers declare_tools(std::vector<RegistryEntry> entries,
                                                      const KeywordArguments& offered);
[[nodiscard]] TOOL_BINDING_API Handlers declare_tools(std::vector<RegistryEntry> entries);

/// "; did you mean 'limit'?" for the one of `names` that is nearest to `given`, whatever the case of either, empty when
/// none is near: near is what a refusal proposes to a caller.
[[nodiscard]] TOOL_BINDING_API std::string did_you_mean(std::string_view given,
                                                        std::span<const std::string_view> names);

/// The type word that `spelling` stands for in other languages and libraries ("float" is "number"), no value for one
/// that stands for none of the five. Case is ignored.
[[nodiscard]] TOOL_BINDING_API std::optional<std::string_view> type_word_of(std::string_view spelling);

/// Places in a registry, as findings name them, for readers of files that find faults of their own. A member of the
/// thing at `parent` is "tools[3].name", or "tools[3]['odd name']" where the short form would be unclear; an item of a
/// list is "tools[3]". The registry itself is the empty place.
[[nodiscard]] TOOL_BINDING_API std::string member_place(std::string_view parent, std::string_view name);
[[nodiscard]] TOOL_BINDING_API std::string item_place(std::string_view parent, std::size_t index);

/// Whether `inner` is `outer` or is within it.
[[nodiscard]] TOOL_BINDING_API bool is_place_within(std::string_view inner, std::string_view outer) noexcept;

}  // namespace tool_binding
