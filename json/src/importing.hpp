// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "schema_reading.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

/// Reads one tool after another. What is remarked upon has no line yet.
class Importing {
 public:
  explicit Importing(Unsayable unsayable) : unsayable_(unsayable) {}

  /// The tool that is declared at `place`, none where it is left out.
  [[nodiscard]] std::optional<RegistryEntry> tool(const Value& declared, const std::string& place);

  void remark(std::string place, std::string words, bool leaves_tool_out = false) {
    tool_is_whole_ = tool_is_whole_ && !leaves_tool_out;
    remarks_.push_back({std::move(place), std::move(words), 0, leaves_tool_out});
  }

  [[nodiscard]] std::vector<Remark> take_remarks() { return std::move(remarks_); }

 private:
  // importing.cpp
  void read_input_schema(ToolDeclaration& tool, const ArgumentMap& schema, const std::string& place);
  void read_required(ToolDeclaration& tool, const Value& names, const std::string& place);
  void read_conditions(ToolDeclaration& tool, const Value& conditions, const std::string& place);
  [[nodiscard]] bool read_condition(ToolDeclaration& tool, const Value& condition);
  [[nodiscard]] Text text_of(const ArgumentMap& members, std::string_view key, const std::string& place);
  void remark_on_others(const ArgumentMap& members, std::span<const std::string_view> kept, const std::string& place);

  // importing_params.cpp
  void read_property(ToolDeclaration& tool, const Text& name, const Value& schema, const std::string& place);
  void read_actions(ToolDeclaration& tool, const Value& schema, const std::string& place);
  void read_type(ParamSpec& param, const SchemaReading& reading, const std::string& place);
  void read_items(ParamSpec& param, const Value& items, const std::string& place);
  void read_enumeration(ParamSpec& param, const Value& values, const std::string& place);
  void read_bound(ParamSpec& param, Value ParamSpec::*bound, const Value& value, const std::string& place);
  void read_default(ParamSpec& param, const Value& value, const std::string& place);

  Unsayable unsayable_;
  bool tool_is_whole_ = true;
  std::vector<Remark> remarks_;
};

}  // namespace tool_binding::json
