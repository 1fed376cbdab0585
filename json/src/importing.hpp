// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

#include "enumeration_reading.hpp"
#include "remarks.hpp"
#include "schema_reading.hpp"
#include "tool_binding/json/tool_list.hpp"

namespace tool_binding::json {

/// A tool as a list declares it, whichever of the usual shapes it has.
struct ListedTool {
  Value members;  ///< those of the tool itself; null for what declares no tool
  std::string place;
  Value schema;                      ///< null for a tool without one
  std::string_view schema_key = {};  ///< the member that holds it
};

[[nodiscard]] ListedTool listed_tool(const Value& item, std::string place);

/// Reads one tool of a list.
class Importing {
 public:
  Importing(const ListedTool& listed, Undeclarable undeclarable, ToolRemarks& remarks)
      : listed_(listed), undeclarable_(undeclarable), remarks_(remarks) {}

  /// The tool as far as it can be declared; of no use where the remarks leave it out.
  [[nodiscard]] ToolDeclaration read();

 private:
  using Kind = Remark::Kind;

  // importing.cpp
  void read_schema_of_tool();
  void read_required(const Value& names, const std::string& place);
  void require(const Text& name, const std::string& place);
  void read_conditions(const Value& conditions, const std::string& place);
  [[nodiscard]] bool read_condition(const Value& condition);
  [[nodiscard]] Text text_of(const ArgumentMap& members, std::string_view key) const;
  void remark_on_others(const Text& param, const ArgumentMap& members, std::span<const std::string_view> kept,
                        const std::string& place);

  // importing_actions.cpp
  void read_actions(const Value& schema, const std::string& place);
  void read_default_action(const Value* value, const std::string& place);

  // importing_params.cpp
  void read_property(const Text& name, const Value& schema, const std::string& place);
  void leave_out(const Text& name, const std::string& reason, const std::string& place);
  void read_unsayable(ParamSpec& param, const SchemaReading& reading, const std::string& place);
  void read_rules(ParamSpec& param, const SchemaReading& reading, const std::string& place);
  void read_items(ParamSpec& param, const Value& items, const std::string& place);
  void take_enumeration(ParamSpec& param, EnumerationReading values, const std::string& place);
  void read_bounds(ParamSpec& param, const ArgumentMap& members, const std::string& place);
  void read_bound(ParamSpec& param, Value ParamSpec::*bound, const Value& value, bool is_exclusive,
                  const std::string& place);
  void read_default(ParamSpec& param, const Value& value, const std::string& place);
  void decide_on_blank(ParamSpec& param, const ArgumentMap& members) const;

  const ListedTool& listed_;
  Undeclarable undeclarable_;
  ToolRemarks& remarks_;
  std::set<Text> required_;
  ToolDeclaration tool_;
  std::map<Text, ParamSpec*> params_;    ///< of the tool, once all are read
  std::map<Text, ActionSpec*> actions_;  ///< the same
};

}  // namespace tool_binding::json
