// SPDX-License-Identifier: MIT
#include <array>

#include "text/lower_case.hpp"
#include "tool_binding/registry_check.hpp"

namespace tool_binding {

namespace {

struct Spelling {
  std::string_view word;
  std::string_view spelling;
};

constexpr std::array<Spelling, 37> spellings = {
    {{"integer", "integer"},    {"integer", "int"},    {"integer", "long"},    {"integer", "whole number"},
     {"integer", "short"},      {"integer", "int32"},  {"integer", "int64"},   {"integer", "bigint"},
     {"integer", "biginteger"}, {"number", "number"},  {"number", "float"},    {"number", "double"},
     {"number", "decimal"},     {"number", "real"},    {"number", "numeric"},  {"number", "float32"},
     {"number", "float64"},     {"boolean", "bool"},   {"boolean", "boolean"}, {"boolean", "flag"},
     {"string", "string"},      {"string", "str"},     {"string", "text"},     {"string", "char"},
     {"string", "character"},   {"string", "varchar"}, {"array", "array"},     {"array", "list"},
     {"array", "tuple"},        {"array", "set"},      {"array", "frozenset"}, {"array", "sequence"},
     {"array", "iterable"},     {"array", "vector"},   {"array", "arraylist"}, {"array", "queue"},
     {"array", "stack"}}};

}  // namespace

std::optional<std::string_view> type_word_of(std::string_view spelling) {
  const Text lowered = text::lower_case(spelling);
  for (const Spelling& row : spellings) {
    if (row.spelling == lowered.view()) {
      return row.word;
    }
  }
  return std::nullopt;
}

}  // namespace tool_binding
