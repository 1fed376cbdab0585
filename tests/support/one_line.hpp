// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "tool_binding/tool_binding.hpp"

/// What comes out of the layer in one readable line, so that a row of a table compares all of it at once.
namespace tool_binding {

inline std::string one_line(const Value& value) { return quoted_form(value); }

/// A context item of these tests is a constant text; it stands between "<" and ">".
inline std::string one_line(const KeywordArgument& argument) {
  return argument.is_context() ? "<" + argument.item<const std::string>() + ">" : one_line(argument.value());
}

template <class Mapped>
std::string one_line(const OrderedMap<Mapped>& map) {
  std::string line = "{";
  for (const auto& [name, value] : map) {
    line.append(line.size() == 1 ? "" : ", ").append(name).append(": ").append(one_line(value));
  }
  return line.append("}");
}

/// `{limit: 25} | 'max' was read as 'limit' | alias`
inline std::string one_line(const NormalizedArguments& admitted) {
  std::string line = one_line(admitted.arguments());
  for (const std::string& note : admitted.notes()) {
    line.append(" | ").append(note);
  }
  return line.append(admitted.alias_hit() ? " | alias" : "");
}

inline std::string one_line(const std::optional<std::string>& refusal) { return refusal.value_or("nothing"); }

/// The line of what `call` returns, or the name and the whole message of the error that it throws: "refused" for an
/// ArgumentError, and no message of an overflow, which is not the layer's to word.
template <class Call>
std::string outcome_of(const Call& call) {
  try {
    return one_line(call());
  } catch (const ArgumentError& error) {
    return std::string("refused: ").append(error.message());
  } catch (const ValueError& error) {
    return std::string("ValueError: ").append(error.message());
  } catch (const TypeError& error) {
    return std::string("TypeError: ").append(error.message());
  } catch (const KeyError& error) {
    return std::string("KeyError: ").append(error.message());
  } catch (const LookupError& error) {
    return std::string("LookupError: ").append(error.message());
  } catch (const std::overflow_error&) {
    return "overflow_error";
  }
}

}  // namespace tool_binding
