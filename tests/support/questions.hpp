// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "support/one_line.hpp"
#include "support/rows.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"

/// Rows of what is asked of a tool: `arguments -> what is admitted`.
///
/// `tool: {...}` declares the tool as a registry file does. `faulty_tool: {...}` is one that no registry file can
/// declare. Beneath `ask: missing` and `ask: default` stand the members of those questions instead of arguments;
/// beneath `ask: bind` stand admitted arguments, which only the function takes. Within a file the tools' names differ.
namespace tool_binding {

/// The line of what the functions answer. That the question comes out of them as it went in is checked each time.
inline std::string line_of_functions(const ToolSpec& tool, const std::string& ask, const ArgumentMap& asked) {
  const auto text = [&](const char* name) {
    const Value* const found = asked.find(name);
    return found != nullptr && found->is_text() ? std::optional<std::string_view>(found->text()) : std::nullopt;
  };
  const std::string before = one_line(asked);
  const std::string line = outcome_of([&]() -> std::optional<std::string> {
    if (ask == "missing") {
      const Value* const given = asked.find("arguments");
      return missing_arguments(tool, text("action"), given == nullptr ? ArgumentMap() : given->mapping());
    }
    if (ask == "bind") {
      const ArgumentMap bound = bind_arguments(tool, asked);
      EXPECT_EQ(bind_arguments(tool, ArgumentMap(asked)), bound) << "arguments given away";
      return one_line(bound);
    }
    return ask == "default" ? one_line(action_default(tool, *text("name"), text("action").value_or("")))
                            : one_line(normalize_arguments(tool, asked));
  });
  EXPECT_EQ(one_line(asked), before);
  return line;
}

/// Asks the functions what a row asks.
inline void expect_answered(const Row& row) {
  const bool usable = row.set.contains("tool");
  const json::RegistryFile file("{\"tools\": [" + row.setting(usable ? "tool" : "faulty_tool") + "]}");
  ASSERT_EQ(file.faults().empty(), usable);
  const Value asked = json::read(row.given);
  EXPECT_EQ(line_of_functions(ToolSpec(file.entries()[0].tool), row.setting("ask", "admit"), asked.mapping()),
            row.expected);
}

}  // namespace tool_binding
