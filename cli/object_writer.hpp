// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "tool_binding/handler.hpp"

namespace tool_binding::cli {

/// Appends a JSON object to a text, member by member, from its construction to `end`.
class ObjectWriter {
 public:
  explicit ObjectWriter(std::string& out);

  void add(const Text& name, const Value& value);
  void add(const Text& name, const ArgumentMap& entries);

  /// Writes a context item as the value that it holds. Precondition: every context item is a `const Value`.
  void add(const Text& name, const KeywordArguments& keywords);

  /// Begins a member, whose value is appended next by an object of its own.
  void begin(const Text& name);

  void end();

 private:
  std::string& out_;
  bool is_empty_ = true;
};

}  // namespace tool_binding::cli
