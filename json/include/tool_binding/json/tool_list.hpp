// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_registry.hpp"
#include "tool_binding/value.hpp"

#pragma GCC visibility push(default)

/// Tools as their callers are told of them: a list whose items have "name", "description" and "inputSchema", a JSON
/// Schema (2020-12) of the arguments. A registry says more than such a schema, and less.
namespace tool_binding::json {

/// What a schema says as rules, and what in words only. Admission keeps every rule whatever was advertised.
enum class SchemaForm : std::uint8_t {
  /// What every client takes: no "allOf" at the top. What an action needs, and defaults that differ by action, stand in
  /// descriptions: "Needed by find and stats.", "Default: 50 for list, 20 otherwise."
  common,
  /// The same, and an "allOf" with what each action needs, for those who read combinators.
  conditions,
  /// What strict function calling asks for: every property is required, and null where it may be left out; bounds and
  /// defaults stand in descriptions. Admission takes null as an argument left out.
  strict,
  /// For clients that validate before they send: whatever admission would mend is valid, and bounds and enumerations
  /// stand in descriptions.
  open,
};

/// The schema of the tool's arguments under their declared names. It accepts the `arguments` of every admitted request,
/// in the strict form with null for each property that they lack; admission takes more than that, which it brings to
/// this form.
///
/// A parameter with an enumeration is text whatever its type, as its values are. Bounds are those that admission brings
/// numbers to; crossed ones, and those of no finite number, are left out. JSON Schema has no words for NaN and the
/// infinities, which a number may be. Strict function calling has none for objects, nor for lists within lists within
/// lists, where a list takes any items.
[[nodiscard]] Value input_schema(const ToolSpec& tool, SchemaForm form = SchemaForm::common);

/// The item of the list: name, description and schema.
[[nodiscard]] Value advertised_tool(const ToolSpec& tool, SchemaForm form = SchemaForm::common);

/// What a registry file says of these entries. Keys that would say what is true without them are left out.
[[nodiscard]] Value registry_value(std::span<const RegistryEntry> entries);

/// What becomes of a parameter that none of the five type words can say.
enum class Unsayable : bool {
  leaves_tool_out,  ///< its tool is not imported
  takes_text,       ///< it is declared to take text
};

/// Something that was read otherwise than it is written, or not kept at all.
struct Remark {
  std::string place;     ///< as "tools[3].inputSchema.properties.limit"
  std::string words;     ///< what became of it
  std::size_t line = 0;  ///< counted from 1
  bool leaves_tool_out = false;

  friend bool operator==(const Remark&, const Remark&) = default;
};

/// The tools of a list as registry entries, with handlers that take any keyword.
struct ImportedTools {
  std::vector<RegistryEntry> entries;  ///< which `registry_errors` finds nothing in
  std::vector<Remark> remarks;         ///< in the order of the lines
};

/// Reads a list of tools, or an object with such a list under "tools". What cannot be said in a registry is remarked
/// upon, each thing with its place. Throws ParseError for a text that is not JSON, and ValueError for one that is not
/// a list of tools.
[[nodiscard]] ImportedTools import_tools(std::string_view text, Unsayable unsayable = Unsayable::leaves_tool_out);

}  // namespace tool_binding::json

#pragma GCC visibility pop
