// SPDX-License-Identifier: MIT
#include "tool_binding/json/registry_file.hpp"

#include <algorithm>
#include <stdexcept>

#include "requests.hpp"
#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/tool_binding.hpp"
#include "values.hpp"

/// A registry file with few faults or many: refused with all of them, or taken, and then requests can be admitted.
namespace tool_binding::fuzz {
namespace {

constexpr std::string_view names[] = {"find", "limit", "limits", "query", "Find", "a.b[0]", "", "max"};
constexpr std::string_view type_words[] = {"integer", "number", "boolean", "string", "array", "string", "text"};
constexpr std::string_view param_keys[] = {
    "name",    "type",    "synonyms",        "description", "items_type",   "enum",           "minimum",
    "maximum", "default", "action_defaults", "required",    "required_for", "blank_is_value", "tpye"};

std::string_view name(Choices& choices) { return choices.one_of(names); }

Value name_list(Choices& choices) {
  std::vector<Value> list;
  for (std::size_t count = choices.below(3); count > 0; --count) {
    list.emplace_back(name(choices));
  }
  return list;
}

/// A value that fits most keys, or any.
Value fitting(Choices& choices, std::string_view key) {
  if (choices.below(16) == 15) {
    return make_value(choices, 2);
  }
  if (key == "type") {
    return choices.one_of(type_words);
  }
  if (key == "synonyms" || key == "enum" || key == "required_for") {
    return name_list(choices);
  }
  if (key == "minimum" || key == "maximum") {
    return static_cast<int>(choices.byte());
  }
  if (key == "action_defaults") {
    return ArgumentMap{{name(choices), make_value(choices, 1)}};
  }
  if (key == "required" || key == "blank_is_value") {
    return choices.flag();
  }
  return name(choices);
}

Value make_param(Choices& choices) {
  ArgumentMap param = {{"name", fitting(choices, "name")}, {"type", fitting(choices, "type")}};
  for (std::size_t count = choices.below(4); count > 0; --count) {
    const std::string_view key = choices.one_of(param_keys);
    param.set(key, fitting(choices, key));
  }
  return param;
}

Value make_tool_entry(Choices& choices) {
  std::vector<Value> actions;
  for (std::size_t count = choices.below(3); count > 0; --count) {
    actions.emplace_back(ArgumentMap{{"name", name(choices)}, {"synonyms", name_list(choices)}});
  }
  std::vector<Value> params;
  for (std::size_t count = choices.below(4); count > 0; --count) {
    params.push_back(make_param(choices));
  }
  ArgumentMap tool = {{"name", name(choices)}, {"actions", actions}, {"params", params}};
  if (choices.flag()) {
    tool.set("default_action", fitting(choices, "default_action"));
  }
  if (choices.below(4) == 3) {
    tool.set("handler", make_value(choices, 3));
  }
  return tool;
}

std::string make_file(Choices& choices) {
  if (choices.byte() != 'v') {
    return std::string(choices.all_bytes());
  }
  std::vector<Value> tools;
  for (std::size_t count = choices.below(3); count > 0; --count) {
    tools.push_back(make_tool_entry(choices));
  }
  return json::write(ArgumentMap{{"tools", tools}});
}

void admit(const ToolSpec& tool, Choices& choices) {
  ToolDeclaration declared{.name = tool.name()};
  declared.params.assign(tool.params().begin(), tool.params().end());
  const ArgumentMap request = make_request(choices, declared);
  try {
    (void)bind_arguments(tool, normalize_arguments(tool, request).arguments());
  } catch (const ArgumentError&) {
    return;
  } catch (const std::overflow_error&) {
    require(has_wide_integer(declared, request), "only a wide integer overflows", quoted_form(request));
  }
}

void check_faults(std::span<const json::Fault> faults, std::string_view file) {
  const auto lines = static_cast<std::size_t>(std::count(file.begin(), file.end(), '\n')) + 1;
  std::size_t line = 0;
  for (const json::Fault& fault : faults) {
    require(!fault.words.empty(), "a fault is said", file);
    require(fault.line >= std::max<std::size_t>(line, 1) && fault.line <= lines, "faults are in the order of lines",
            file);
    line = fault.line;
  }
}

void check(Choices choices) {
  const std::string file = make_file(choices);
  try {
    const json::RegistryFile judged(file);
    check_faults(judged.faults(), file);
    try {
      for (const json::DeclaredTool& declared : json::read_registry(file)) {
        require(judged.faults().empty(), "a file with faults is refused", file);
        admit(declared.tool, choices);
      }
    } catch (const json::RegistryError& error) {
      require(
          std::equal(error.faults().begin(), error.faults().end(), judged.faults().begin(), judged.faults().end()) &&
              !error.faults().empty(),
          "a refused file has all its faults named", file);
    }
  } catch (const json::ParseError&) {
    return;
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
