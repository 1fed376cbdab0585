// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tool_binding/handler.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::cli {

/// Writes a JSON object member by member, from its construction to `end`.
class ObjectWriter {
 public:
  explicit ObjectWriter(json::Writer& out);

  void add(const Text& name, const Value& value);
  void add(const Text& name, const ArgumentMap& entries);
  void add(const Text& name, const std::vector<std::string>& texts);

  /// Adds "bound" and "keywords", the keywords that `handler` is called with. A context item is written as the value
  /// that it holds. Precondition: every context item is a `const Value`.
  void add_bound(ArgumentMap bound, const Handler& handler, const KeywordArguments& context);

  /// Begins a member, whose value is written next by an object of its own.
  void begin(const Text& name);

  void end();

 private:
  void add_entries(const ArgumentMap& entries);
  void add_entries(const KeywordArguments& keywords, std::size_t first);

  json::Writer& out_;
};

}  // namespace tool_binding::cli
