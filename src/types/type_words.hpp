// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "tool_binding/value.hpp"

/// The five types of a parameter, a row for each.
namespace tool_binding {

// The coercers: each is given a value that is not of its type yet, and returns it as one that is. Null stands for a
// value that cannot be read so, whether by its kind or by its content: a refused value is an everyday answer of
// admission, and costs no exception.
[[nodiscard]] Value _integer(const Value& value);
/// Throws std::overflow_error for an integer beyond the largest double.
[[nodiscard]] Value _number(const Value& value);
[[nodiscard]] Value _boolean(const Value& value);
[[nodiscard]] Value _string(const Value& value);
[[nodiscard]] Value _array(const Value& value);

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
