// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/detail/lifetime.hpp"
#include "tool_binding/text.hpp"
#include "tool_binding/value.hpp"

/// The registry: the one table of the tools that a daemon offers.
///
/// A daemon fills `TOOLS` at start-up, before its first request; afterwards the registry is only read, from any number
/// of threads, and nothing is locked. Records are shared by every request and live as long as the process.
namespace tool_binding {

/// The argument name under which a request names its action.
inline constexpr std::string_view ACTION_PARAM = "action";

/// The argument name that carries the repository's root. Admission drops it, as it drops "repo".
inline constexpr std::string_view REPO_ROOT_ARGUMENT = "repo_root";

/// Whether admission reads or drops every argument of that name itself: ACTION_PARAM, REPO_ROOT_ARGUMENT and "repo". A
/// parameter declared under such a name never gets what a request sends by it.
[[nodiscard]] TOOL_BINDING_API bool is_reserved_name(std::string_view name) noexcept;

/// The action of a call, or none: nothing, null in each of its forms and an empty optional stand for a call that runs
/// no action. An empty text names one. Refers to the text that it was made of.
class TOOL_BINDING_API ActionName {
 public:
  constexpr ActionName() noexcept = default;
  constexpr ActionName(std::nullptr_t) noexcept {}  // NOLINT(google-explicit-constructor)
  constexpr ActionName(std::nullopt_t) noexcept {}  // NOLINT(google-explicit-constructor)
  constexpr ActionName(const char* name)            // NOLINT(google-explicit-constructor)
      : name_(name == nullptr ? std::nullopt : std::optional<std::string_view>(name)) {}
  template <std::convertible_to<std::string_view> Name>
  constexpr ActionName(const Name& name TOOL_BINDING_LIFETIMEBOUND)  // NOLINT(google-explicit-constructor)
      : name_(name) {}
  template <std::convertible_to<std::string_view> Name>
  constexpr ActionName(const std::optional<Name>& name)  // NOLINT(google-explicit-constructor)
      : name_(name ? std::optional<std::string_view>(*name) : std::nullopt) {}

  [[nodiscard]] constexpr const std::optional<std::string_view>& name() const noexcept { return name_; }

 private:
  std::optional<std::string_view> name_;
};

/// One declared parameter, a plain record for designated initializers. Written with its name, `ParamSpec{.name = …}`,
/// a misspelled field is named by the compiler.
struct TOOL_BINDING_API ParamSpec {
  /// The name under which admitted and bound arguments carry the parameter.
  Text name;
  /// The type word: "integer", "number", "boolean", "string" or "array". With any other word a request that gives the
  /// parameter fails with KeyError.
  Text type;
  /// Other names that a request may use.
  std::vector<Text> synonyms = {};
  /// For people and advertised schemas.
  Text description = {};
  /// The type word of an array's items; none leaves items as they come. Only "string" has an effect.
  std::optional<Text> items_type = {};
  /// The values that the parameter allows, as they are handed to the handler; matched without regard to case. Empty
  /// for a parameter that is not an enumeration.
  std::vector<Text> enum_ = {};
  /// Inclusive bounds, an integer or a floating number each; null for none. A number beyond one is brought to it. With
  /// a bound that is not a number, a request that gives the parameter fails with TypeError.
  Value minimum = {};
  Value maximum = {};
  /// What a request that leaves the parameter out gets.
  Value default_ = {};
  /// Defaults that differ by action, by action name. When not empty, binding gives null for a parameter left out, and
  /// the handler asks `action_default`.
  ArgumentMap action_defaults = {};
  /// Whether every call needs the parameter.
  bool required = false;
  /// The actions whose calls need the parameter.
  std::vector<Text> required_for = {};
  /// Whether blank text is a value, rather than the parameter left out.
  bool blank_is_value = false;

  /// Whether a call that runs `action` needs this parameter.
  [[nodiscard]] bool required_by(ActionName action) const noexcept;
};

/// One declared action, a plain record for designated initializers.
struct ActionSpec {
  Text name;
  std::vector<Text> synonyms = {};
  Text description = {};
};

/// What a tool is declared with; a plain record for designated initializers, made into a `ToolSpec`.
struct ToolDeclaration {
  Text name;
  Text description = {};
  std::vector<ActionSpec> actions = {};
  /// The action of a request that names none; no value for a tool without such an action.
  std::optional<Text> default_action = {};
  std::vector<ParamSpec> params = {};
};

namespace detail {
struct ToolRecord;
}

/// The record of one tool, immutable, copied without copying its content. Making one compiles the declaration, so that
/// no request searches a list. Everything that it hands out lives as long as any copy of the record. A record that is
/// moved from is copied: it stays what it was.
class TOOL_BINDING_API ToolSpec {
 public:
  /// Throws std::bad_alloc only: what is doubtful in a declaration is for a check of the whole registry to say.
  explicit ToolSpec(ToolDeclaration declaration);

  ToolSpec(const ToolSpec&) noexcept = default;
  ToolSpec& operator=(const ToolSpec&) noexcept = default;
  ~ToolSpec() = default;

  [[nodiscard]] const Text& name() const noexcept;
  [[nodiscard]] const Text& description() const noexcept;

  /// The parameters in declared order, and their names in the same order.
  [[nodiscard]] std::span<const ParamSpec> params() const noexcept;
  [[nodiscard]] std::span<const Text> param_names() const noexcept;

  /// The actions in declared order, and their names in the same order.
  [[nodiscard]] std::span<const ActionSpec> actions() const noexcept;
  [[nodiscard]] std::span<const Text> action_names() const noexcept;
  [[nodiscard]] const std::optional<Text>& default_action() const noexcept;

  /// The parameter that `name` denotes, null when there is none: exact and case-sensitive, a declared name before a
  /// synonym, of two synonyms the earlier parameter's.
  [[nodiscard]] const ParamSpec* param(const Text& name) const noexcept;

  /// The action that `value` names, null when there is none. Only text names an action: a declared name that equals it,
  /// else the first action whose name or synonym equals it once white space is stripped and case ignored.
  [[nodiscard]] const ActionSpec* action(const Value& value) const;

  /// The refusal of an action that the tool does not declare.
  [[nodiscard]] std::string unknown_action_error(const Value& value) const;

  /// What the record consists of; for the layer itself.
  [[nodiscard]] const detail::ToolRecord& record() const noexcept { return *record_; }

 private:
  std::shared_ptr<const detail::ToolRecord> record_;
};

/// The tools by name, in the order in which they were declared. Records stay where they are: what the table hands out
/// lives as long as the table, whatever is added to it.
class TOOL_BINDING_API ToolTable {
 public:
  /// An empty table, usable before any other static object of the program is made.
  constexpr ToolTable() noexcept = default;
  ~ToolTable();
  ToolTable(const ToolTable&) = delete;
  ToolTable& operator=(const ToolTable&) = delete;

  /// Adds a tool, or several in their order. Throws ValueError for a name that the table holds already or that occurs
  /// twice. Whatever is thrown, std::bad_alloc included, the table holds what it held. Not to be called once requests
  /// are answered.
  void add(const ToolSpec& tool);
  void add(ToolDeclaration tool);
  void add(std::span<const ToolSpec> tools);

  /// The tool of that name. Throws UnknownToolError when there is none.
  [[nodiscard]] const ToolSpec& operator[](std::string_view name) const;

  /// The tool of that name, null when there is none.
  [[nodiscard]] const ToolSpec* find(std::string_view name) const noexcept;

  /// Every tool, in declared order. What is added later is in it, too.
  [[nodiscard]] const std::deque<ToolSpec>& all() const;

 private:
  struct Content;
  Content* content_ = nullptr;  ///< owned; made by the first `add`
};

namespace detail {

/// A table that is never destroyed: threads may still answer while the process ends.
union LastingTable {
  ToolTable table;

  constexpr LastingTable() noexcept : table() {}
  ~LastingTable() {}  // NOLINT(modernize-use-equals-default): a defaulted one would destroy the table, or be deleted
};

TOOL_BINDING_API extern LastingTable tools_of_process;

}  // namespace detail

/// The registry of this process: usable before any other static object is made and until the process is gone.
inline constexpr ToolTable& TOOLS = detail::tools_of_process.table;

}  // namespace tool_binding
