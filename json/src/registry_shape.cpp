// SPDX-License-Identifier: MIT
#include "registry_shape.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <utility>

#include "field_readers.hpp"

namespace tool_binding::json {

namespace {

struct Root {
  std::vector<RegistryEntry> tools;
};

template <auto Field, class Record>
void into(ShapeFaults& faults, const Node& node, const std::string& place, Record& record) {
  read_field(faults, node, place, record.*Field);
}

template <auto Field>
void into_tool(ShapeFaults& faults, const Node& node, const std::string& place, RegistryEntry& entry) {
  read_field(faults, node, place, entry.tool.*Field);
}

template <class Record>
void nowhere(ShapeFaults& faults, const Node& node, const std::string& place, Record& /*record*/) {
  FreeText unread;
  read_field(faults, node, place, unread);
}

void into_parameters(ShapeFaults& faults, const Node& node, const std::string& place, Signature& signature) {
  std::vector<Parameter> listed;
  read_field(faults, node, place, listed);
  signature.parameters = std::move(listed);
}

void into_signature(ShapeFaults& faults, const Node& node, const std::string& place, RegistryEntry& entry) {
  entry.handler.signature = {};
  read_field(faults, node, place, entry.handler.signature);
}

}  // namespace

template <>
std::span<const Key<Parameter>> keys() {
  static constexpr std::array<Key<Parameter>, 3> rows{
      {{"name", into<&Parameter::name>, true}, {"kind", into<&Parameter::kind>}, {"description", nowhere}}};
  return rows;
}

template <>
std::span<const Key<Signature>> keys() {
  static constexpr std::array<Key<Signature>, 2> rows{{{"parameters", into_parameters}, {"description", nowhere}}};
  return rows;
}

template <>
std::span<const Key<ActionSpec>> keys() {
  static constexpr std::array<Key<ActionSpec>, 3> rows{{{"name", into<&ActionSpec::name>, true},
                                                        {"synonyms", into<&ActionSpec::synonyms>},
                                                        {"description", into<&ActionSpec::description>}}};
  return rows;
}

template <>
std::span<const Key<ParamSpec>> keys() {
  static constexpr std::array<Key<ParamSpec>, 13> rows{{{"name", into<&ParamSpec::name>, true},
                                                        {"type", into<&ParamSpec::type>, true},
                                                        {"synonyms", into<&ParamSpec::synonyms>},
                                                        {"description", into<&ParamSpec::description>},
                                                        {"items_type", into<&ParamSpec::items_type>},
                                                        {"enum", into<&ParamSpec::enum_>},
                                                        {"minimum", into<&ParamSpec::minimum>},
                                                        {"maximum", into<&ParamSpec::maximum>},
                                                        {"default", into<&ParamSpec::default_>},
                                                        {"action_defaults", into<&ParamSpec::action_defaults>},
                                                        {"required", into<&ParamSpec::required>},
                                                        {"required_for", into<&ParamSpec::required_for>},
                                                        {"blank_is_value", into<&ParamSpec::blank_is_value>}}};
  return rows;
}

template <>
std::span<const Key<RegistryEntry>> keys() {
  static constexpr std::array<Key<RegistryEntry>, 6> rows{
      {{"name", into_tool<&ToolDeclaration::name>, true},
       {"description", into_tool<&ToolDeclaration::description>},
       {"actions", into_tool<&ToolDeclaration::actions>},
       {"default_action", into_tool<&ToolDeclaration::default_action>},
       {"params", into_tool<&ToolDeclaration::params>},
       {"handler", into_signature}}};
  return rows;
}

template <>
std::span<const Key<Root>> keys() {
  static constexpr std::array<Key<Root>, 2> rows{{{"tools", into<&Root::tools>}, {"description", nowhere}}};
  return rows;
}

namespace {

/// Forgets what refers to actions: whether it names one cannot be judged where some action could not be read.
void forget_references(ToolDeclaration& tool) {
  tool.default_action.reset();
  for (ParamSpec& param : tool.params) {
    param.action_defaults = {};
    param.required_for.clear();
  }
}

/// Adds a fault for every key that is given twice, those within free values included.
void find_repeated(ShapeFaults& faults, const Node& node, const std::string& place) {
  for (const std::size_t member : node.repeated) {
    faults.add(node.children[member], child_place(node, place, member), "is given twice");
  }
  for (std::size_t child = 0; child < node.children.size(); ++child) {
    if (!node.children[child].children.empty()) {
      find_repeated(faults, node.children[child], child_place(node, place, child));
    }
  }
}

}  // namespace

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, RegistryEntry& entry) {
  entry.handler.signature.parameters = {Parameter{.name = "keywords", .kind = Parameter::Kind::VAR_KEYWORD}};
  const std::size_t found_before = faults.all().size();
  read_members(faults, node, place, entry);
  const std::span<const RegistryFinding> found = faults.all().subspan(found_before);
  const std::string actions = member_place(place, "actions");
  if (std::any_of(found.begin(), found.end(),
                  [&](const RegistryFinding& f) { return is_place_within(f.place, actions); })) {
    forget_references(entry.tool);
  }
}

RegistryShape read_shape(const Node& file) {
  ShapeFaults faults;
  Root root;
  find_repeated(faults, file, "");
  read_field(faults, file, "", root);
  return {std::move(root.tools), faults.take()};
}

}  // namespace tool_binding::json
