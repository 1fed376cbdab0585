// SPDX-License-Identifier: MIT
#include "tool_binding/json/tool_list.hpp"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "requests.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/tool_binding.hpp"
#include "values.hpp"

/// A list of tools with the schemas that people write: refused, or imported as a registry that has no errors, can be
/// written and read, and says of itself what is imported as the same registry again.
namespace tool_binding::fuzz {
namespace {

using json::ImportedTools;
using json::Remark;
using json::Undeclarable;

constexpr std::string_view names[] = {"p", "q", "limit", "action", "repo", "a.b", "", "P", "r"};
constexpr std::string_view types[] = {"string", "integer", "number", "boolean",   "array", "object",
                                      "null",   "float",   "any",    "List[str]", "str",   "Optional[int]"};
constexpr std::string_view keys[] = {"type",    "enum",      "const",    "default",  "minimum",          "maximum",
                                     "anyOf",   "oneOf",     "allOf",    "items",    "exclusiveMinimum", "$ref",
                                     "pattern", "minLength", "nullable", "required", "description",      "format"};
constexpr std::string_view descriptions[] = {"a: one\nb: two", "Needed by a.", "Default: 1 for a, 2 otherwise.",
                                             "At least 1.", "d"};

Value make_schema(Choices& choices, unsigned depth);

std::vector<Value> make_schemas(Choices& choices, unsigned depth) {
  std::vector<Value> schemas;
  for (std::size_t count = choices.below(3); count > 0; --count) {
    schemas.push_back(make_schema(choices, depth));
  }
  return schemas;
}

std::vector<Value> make_texts(Choices& choices) {
  std::vector<Value> texts;
  for (std::size_t count = choices.below(4); count > 0; --count) {
    texts.emplace_back(choices.one_of(names));
  }
  return texts;
}

/// A value that fits the key, or any.
Value fitting(Choices& choices, std::string_view key, unsigned depth) {
  if (choices.below(16) == 15) {
    return make_value(choices, 2);
  }
  if (key == "type") {
    return choices.below(4) == 3 ? Value::list({choices.one_of(types), choices.one_of(types)})
                                 : Value(choices.one_of(types));
  }
  if (key == "enum" || key == "required") {
    return choices.flag() ? Value(make_texts(choices)) : Value::list({choices.below(9), choices.below(9)});
  }
  if (key == "anyOf" || key == "oneOf" || key == "allOf") {
    return make_schemas(choices, depth);
  }
  if (key == "items") {
    return make_schema(choices, depth);
  }
  if (key == "$ref") {
    return choices.flag() ? "#/$defs/p" : "#/properties/q";
  }
  if (key == "description") {
    return choices.one_of(descriptions);
  }
  return choices.flag() ? Value(choices.below(9)) : make_value(choices, 1);
}

Value make_schema(Choices& choices, unsigned depth) {
  ArgumentMap schema;
  for (std::size_t count = depth == 0 ? 1 : choices.below(5); count > 0; --count) {
    const std::string_view key = depth == 0 ? "type" : choices.one_of(keys);
    schema.set(key, fitting(choices, key, depth - 1));
  }
  return schema;
}

Value make_properties(Choices& choices) {
  ArgumentMap properties;
  for (std::size_t count = choices.below(5); count > 0; --count) {
    properties.set(choices.one_of(names), make_schema(choices, 3));
  }
  return properties;
}

Value make_listed_tool(Choices& choices) {
  ArgumentMap schema = {{"type", "object"}, {"properties", make_properties(choices)}};
  if (choices.flag()) {
    schema.set("required", make_texts(choices));
  }
  if (choices.below(4) == 3) {
    schema.set("$defs", make_properties(choices));
  }
  if (choices.below(8) == 7) {
    const std::string_view key = choices.one_of(keys);
    schema.set(key, fitting(choices, key, 2));
  }
  return ArgumentMap{{"name", choices.one_of(names)}, {"inputSchema", schema}};
}

std::string make_list(Choices& choices) {
  if (choices.byte() != 'v') {
    return std::string(choices.all_bytes());
  }
  std::vector<Value> tools;
  for (std::size_t count = 1 + choices.below(3); count > 0; --count) {
    tools.push_back(make_listed_tool(choices));
  }
  return json::write(tools);
}

void check_remarks(const ImportedTools& imported, std::string_view list) {
  const auto lines = static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')) + 1;
  std::size_t line = 1;
  std::size_t left_out = 0;
  for (const Remark& remark : imported.remarks) {
    require(!remark.words.empty(), "a remark is said", list);
    require(line <= remark.line && remark.line <= lines, "remarks are in the order of lines", list);
    line = remark.line;
    left_out += remark.kind == Remark::Kind::tool_left_out ? 1 : 0;
  }
  require(imported.entries.size() + left_out == imported.listed, "a tool is imported or left out", list);
}

/// As text, in which a NaN equals itself.
std::string written(std::span<const RegistryEntry> entries) { return json::write(json::registry_value(entries)); }

/// The tools that come of what these say of themselves: no fewer, with the same parameters. Their types may be spelled
/// otherwise, as that of the items of an enumeration is.
ImportedTools advertised_and_imported(const ImportedTools& imported) {
  std::vector<Value> tools;
  for (const RegistryEntry& entry : imported.entries) {
    tools.push_back(json::advertised_tool(ToolSpec(entry.tool)));
  }
  const std::string said = json::write(tools);
  ImportedTools again = json::import_tools(said);
  const auto same_param = [](const ParamSpec& left, const ParamSpec& right) {
    return left.name == right.name && (left.type == right.type || !left.enum_.empty()) && left.enum_ == right.enum_ &&
           left.required == right.required && left.required_for == right.required_for;
  };
  const auto same_tool = [&](const RegistryEntry& left, const RegistryEntry& right) {
    return left.tool.name == right.tool.name &&
           std::equal(left.tool.params.begin(), left.tool.params.end(), right.tool.params.begin(),
                      right.tool.params.end(), same_param);
  };
  require(std::equal(imported.entries.begin(), imported.entries.end(), again.entries.begin(), again.entries.end(),
                     same_tool),
          "what imported tools say of themselves is imported as the same tools", said);
  return again;
}

void admit_request(const ToolDeclaration& declared, Choices& choices) {
  const ArgumentMap request = make_request(choices, declared);
  try {
    (void)admit(ToolSpec(declared), request);
  } catch (const std::overflow_error&) {
    require(has_wide_integer(declared, request), "only a wide integer overflows", quoted_form(request));
  }
}

/// None for a text that is no list of tools.
std::optional<ImportedTools> imported_from(std::string_view list, Undeclarable undeclarable) {
  try {
    return json::import_tools(list, undeclarable);
  } catch (const json::ParseError&) {
    return std::nullopt;
  } catch (const ValueError&) {
    return std::nullopt;
  }
}

void check(Choices choices) {
  const std::string list = make_list(choices);
  const std::optional<ImportedTools> imported =
      imported_from(list, choices.flag() ? Undeclarable::takes_text : Undeclarable::left_out);
  if (!imported) {
    return;
  }
  check_remarks(*imported, list);
  require(registry_errors(imported->entries).empty(), "what is imported has no errors", list);
  if (imported->entries.empty()) {
    return;
  }
  const std::string registry = written(imported->entries);
  require(registry == written(json::RegistryFile(registry).entries()), "a registry that is written is read as it was",
          list);
  const ImportedTools again = advertised_and_imported(*imported);
  require(written(again.entries) == written(advertised_and_imported(again).entries),
          "what tools say of themselves changes no more once it was imported", list);
  for (const RegistryEntry& entry : imported->entries) {
    admit_request(entry.tool, choices);
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
