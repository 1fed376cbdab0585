// SPDX-License-Identifier: MIT
#include <map>
#include <sstream>

#include "command.hpp"
#include "support/one_line.hpp"
#include "support/rows.hpp"
#include "tool_binding/json/reader.hpp"
#include "tool_binding/json/writer.hpp"

// The command answers the rows of admission and binding as the functions do.
namespace tool_binding {
namespace {

/// The line of an answer of the command.
std::string line_of_answer(const ArgumentMap& answer) {
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
std::string request_of(std::string_view tool, const std::string& ask, const ArgumentMap& asked) {
  ArgumentMap request = {{"tool", tool}};
  for (const auto& [name, value] : ask == "admit" ? ArgumentMap{{"arguments", asked}} : asked) {
    request.set(name, value);
  }
  return json::write(request) + "\n";
}

struct Questions {
  std::string lines;
  std::vector<Row> rows;
};

class Questioned : public testing::TestWithParam<const char*> {};

TEST_P(Questioned, AnswersAsTheFunctionsDo) {
  std::map<std::string, Questions> questions;
  std::map<std::string, Text> names;
  std::string registry;
  for (const Row& row : rows_of(std::string("../") + GetParam() + ".rows")) {
    const std::string declared = row.setting("tool");
    const std::string ask = row.setting("ask", "admit");
    if (declared.empty() || ask == "bind") {
      continue;
    }
    if (!names.contains(declared)) {
      names[declared] = json::read(declared).mapping().find("name")->shared_text();
      registry += (registry.empty() ? "" : ",\n") + declared;
    }
    questions[ask].lines += request_of(names[declared], ask, json::read(row.given).mapping());
    questions[ask].rows.push_back(row);
  }
  const std::string file = cli_test::file_of("{\"tools\": [" + registry + "]}");
  for (const auto& [ask, asked] : questions) {
    std::istringstream answers(cli_test::run({ask, "--registry", file}, asked.lines).out);
    for (const Row& row : asked.rows) {
      std::string answer = R"({"error": "none", "message": "no answer"})";
      std::getline(answers, answer);
      EXPECT_EQ(line_of_answer(json::read(answer).mapping()), row.expected) << row.place;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, Questioned,
                         testing::Values("admission/action", "admission/coercion", "admission/enumerations_and_bounds",
                                         "admission/missing_arguments", "admission/normalize_arguments",
                                         "admission/unknown_parameter", "binding/action_default"),
                         [](const auto& file) {
                           return std::string(file.param).substr(std::string(file.param).find('/') + 1);
                         });

}  // namespace
}  // namespace tool_binding
