// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command.hpp"
#include "support/one_line.hpp"
#include "support/rows.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/registry_file.hpp"
#include "tool_binding/json/writer.hpp"

/// Rows of what is asked of a tool, put to the functions and to the built command: `arguments -> what is admitted`.
///
/// `tool: {...}` declares the tool as a registry file does. `faulty_tool: {...}` is one that no registry file can
/// declare: the functions alone are asked of it. Beneath `ask: missing` and `ask: default` stand the members of those
/// questions instead of arguments; beneath `ask: bind` stand admitted arguments, which only the function takes. Within
/// a program of tests the tools' names differ.
namespace tool_binding {

/// The line of what the functions answer. That the question comes out of them as it went in is checked each time.
inline std::string line_of_functions(std::string_view tool, const std::string& ask, const ArgumentMap& asked) {
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

/// The line of an answer of the command.
inline std::string line_of_answer(const ArgumentMap& answer) {
  if (const Value* const error = answer.find("error")) {
    const std::string name(error->text());
    return name == "OverflowError"
               ? "overflow_error"
               : (name == "ArgumentError" ? "refused" : name) + ": " + std::string(answer.find("message")->text());
  }
  if (const Value* const missing = answer.find("missing")) {
    return missing->is_null() ? "nothing" : std::string(missing->text());
  }
  if (const Value* const value = answer.find("default")) {
    return one_line(*value);
  }
  std::vector<std::string> notes;
  for (const Value& note : answer.find("notes")->list()) {
    notes.emplace_back(note.text());
  }
  return one_line(NormalizedArguments(answer.find("arguments")->mapping(), notes, answer.find("alias_hit")->boolean()));
}

/// The line in which the command is asked.
inline std::string request_of(std::string_view tool, const std::string& ask, const ArgumentMap& asked) {
  ArgumentMap request = {{"tool", tool}};
  for (const auto& [name, value] : ask == "admit" ? ArgumentMap{{"arguments", asked}} : asked) {
    request.set(name, value);
  }
  return json::write(request) + "\n";
}

inline void expect_walked(const std::string& name, const char* source = __builtin_FILE()) {
  struct Questions {
    std::string lines;
    std::vector<Row> rows;
  };
  std::map<std::string, Questions> for_command;
  std::map<std::string, Text> names;
  std::string registry;
  for (const Row& row : rows_of(name, source)) {
    const bool usable = row.set.contains("tool");
    const std::string& declared = row.set.at(usable ? "tool" : "faulty_tool");
    if (!names.contains(declared)) {
      const json::RegistryFile file("{\"tools\": [" + declared + "]}");
      EXPECT_EQ(file.faults().empty(), usable) << row.place;
      TOOLS.add(file.entries()[0].tool);
      names[declared] = file.entries()[0].tool.name;
      registry += usable ? (registry.empty() ? "" : ",\n") + declared : "";
    }
    const std::string ask = row.set.contains("ask") ? row.set.at("ask") : "admit";
    const Value asked = json::read(row.given);
    EXPECT_EQ(line_of_functions(names[declared], ask, asked.mapping()), row.expected) << row.place;
    if (usable && ask != "bind") {
      for_command[ask].lines += request_of(names[declared], ask, asked.mapping());
      for_command[ask].rows.push_back(row);
    }
  }
  const std::string file = cli_test::file_of("{\"tools\": [" + registry + "]}");
  for (const auto& [ask, questions] : for_command) {
    std::istringstream answers(cli_test::run({ask, "--registry", file}, questions.lines).out);
    for (const Row& row : questions.rows) {
      std::string answer = R"({"error": "none", "message": "no answer"})";
      std::getline(answers, answer);
      EXPECT_EQ(line_of_answer(json::read(answer).mapping()), row.expected) << row.place << ", by the command";
    }
  }
}

}  // namespace tool_binding
