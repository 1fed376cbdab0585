// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_binding/tool_registry.hpp"
#include "tool_binding/value.hpp"

/// Tools as their callers are told of them: a list whose items have "name", "description" and "inputSchema", a JSON
/// Schema (2020-12) of the arguments. A registry says more than such a schema, and less.
namespace tool_binding::json {

/// What a schema says as rules, and what in words only. Admission keeps every rule whatever was advertised.
enum class SchemaForm : std::uint8_t {
  /// What every client takes: no "allOf" at the top. What an action needs, and defaults that differ by action, are in
  /// descriptions: "Needed by find and stats.", "Default: 50 for list, 20 otherwise."
  common,
  /// The same, and an "allOf" with what each action needs, for those who read combinators.
  conditions,
  /// What strict function calling asks for: every property is required, and null where it may be left out; bounds and
  /// defaults are given in descriptions. Admission takes null as an argument left out.
  strict,
  /// For clients that validate before they send: whatever admission would mend is valid, and bounds and enumerations
  /// are in the descriptions.
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
[[nodiscard]] TOOL_BINDING_API Value input_schema(const ToolSpec& tool, SchemaForm form = SchemaForm::common);

/// The item of the list: name, description and schema.
[[nodiscard]] TOOL_BINDING_API Value advertised_tool(const ToolSpec& tool, SchemaForm form = SchemaForm::common);

/// What a registry file says of these entries. Keys that would say what is true without them are left out.
[[nodiscard]] TOOL_BINDING_API Value registry_value(std::span<const RegistryEntry> entries);

/// What becomes of a parameter that none of the five type words can say, as an object or a union. An optional one is
/// left out of its tool, a required one leaves its tool out; or either is declared to take text, and its description
/// tells callers to send it so.
enum class Undeclarable : bool { left_out, takes_text };

/// Something of a list of tools that a registry does not say, or says otherwise.
struct Remark {
  enum class Kind : std::uint8_t {
    tool_left_out,  ///< with every reason; nothing else is remarked upon in such a tool
    rule_lost,      ///< what the list asks of calls and admission does not
    reading,        ///< what calls or handlers notice, as an enumeration of numbers that is handed over as text
    annotation,     ///< what neither notices: other spellings of types, titles, examples
  };

  Kind kind;
  std::string tool;       ///< its name; empty for what is outside of every tool, or in one without a name
  std::string parameter;  ///< its name, empty for what concerns the whole tool
  std::string place;      ///< as "tools[3].inputSchema.properties.limit"
  std::string words;      ///< what became of it
  std::size_t line = 0;   ///< counted from 1

  friend bool operator==(const Remark&, const Remark&) = default;
};

/// The tools of a list as registry entries, with handlers that take any keyword.
struct ImportedTools {
  std::vector<RegistryEntry> entries;  ///< which `registry_errors` finds nothing in
  std::vector<Remark> remarks;         ///< in the order of the lines
  std::size_t listed = 0;              ///< the tools in the list, read or left out
};

/// Reads a list of tools, in any of these shapes: the list itself; an object with the list under "tools"; a JSON-RPC
/// answer to "tools/list". A tool's schema is its "inputSchema", "input_schema" or "parameters", and a tool may be
/// under "function". Takes time in proportion to the text.
///
/// Throws ParseError for a text that is no JSON, and ValueError for one that is no list of tools, or a list in which no
/// tool has a name and a schema.
[[nodiscard]] TOOL_BINDING_API ImportedTools import_tools(std::string_view text,
                                                          Undeclarable undeclarable = Undeclarable::left_out);

}  // namespace tool_binding::json
