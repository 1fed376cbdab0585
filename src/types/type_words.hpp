// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "types/coercers.hpp"

/// The five types of a parameter, a row for each.
namespace tool_binding {

enum class TypeWord : std::uint8_t { integer, number, boolean, string, array };

struct TypeRow {
  TypeWord type;
  std::string_view word;          ///< as a declaration, a registry file and a JSON Schema spell it
  Kind kind;                      ///< of the type's values
  Value (*coerce)(const Value&);  ///< reads a value of another kind as one of the type
  std::string_view words;         ///< what a problem calls what may be sent
  std::string_view given;         ///< what a handler gets
  std::string_view taken_as;      ///< the C++ type that a handler takes it as best
};

inline constexpr std::array<TypeRow, 5> TYPE_WORDS = {{
    {TypeWord::integer, "integer", Kind::integer, _integer, "a whole number", "a whole number", "int"},
    {TypeWord::number, "number", Kind::floating, _number, "a number", "a number", "double"},
    {TypeWord::boolean, "boolean", Kind::boolean, _boolean, "true or false", "true or false", "bool"},
    {TypeWord::string, "string", Kind::text, _string, "text", "text", "std::string"},
    {TypeWord::array, "array", Kind::list, _array, "a list (or comma-separated text)", "a list",
     "std::vector<tool_binding::Value>"},
}};

/// The row of a type word, null for a word that is none of the five.
[[nodiscard]] constexpr const TypeRow* type_row(std::string_view word) noexcept {
  for (const TypeRow& row : TYPE_WORDS) {
    if (row.word == word) {
      return &row;
    }
  }
  return nullptr;
}

}  // namespace tool_binding
