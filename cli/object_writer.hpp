// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "tool_binding/handler.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

/// Writes a JSON object member by member, from its construction to `end`.
class ObjectWriter {
 public:
  explicit ObjectWriter(json::Writer& out);

  void add(const Text& name, const Value& value);
  void add(const Text& name, const ArgumentMap& entries);
  void add(const Text& name, std::span<const std::string> texts);

  /// Writes a context item as the value that it holds. Precondition: every context item is a `const Value`.
  void add(const Text& name, const KeywordArguments& keywords);

  /// Begins a member, whose value is written next by an object of its own.
  void begin(const Text& name);

  void end();

 private:
  json::Writer& out_;
};

}  // namespace tool_binding::cli
