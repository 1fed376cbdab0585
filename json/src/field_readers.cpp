// SPDX-License-Identifier: MIT
#include "field_readers.hpp"

#include <array>

namespace tool_binding::json {

namespace {

struct ParameterKindWord {
  std::string_view word;
  Parameter::Kind kind;
};

constexpr std::array<ParameterKindWord, 3> parameter_kinds{{{"NAMED", Parameter::Kind::NAMED},
                                                            {"VAR_POSITIONAL", Parameter::Kind::VAR_POSITIONAL},
                                                            {"VAR_KEYWORD", Parameter::Kind::VAR_KEYWORD}}};

}  // namespace

bool ShapeFaults::require(bool holds, std::string_view wanted, const Node& node, const std::string& place) {
  if (!holds) {
    std::string words = "must be ";
    add(node, place, words.append(wanted).append(", not ").append(kind_words(node.value.kind())));
  }
  return holds;
}

std::string_view parameter_kind_word(Parameter::Kind kind) noexcept {
  return std::find_if(parameter_kinds.begin(), parameter_kinds.end(), [&](const auto& row) { return row.kind == kind; })
      ->word;
}

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, FreeText& /*text*/) {
  faults.require(node.value.is_text(), "text", node, place);
}

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, Text& text) {
  if (faults.require(node.value.is_text(), "text", node, place)) {
    text = node.value.shared_text();
  }
}

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, std::optional<Text>& text) {
  read_field(faults, node, place, text.emplace());
}

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, bool& flag) {
  if (faults.require(node.value.is_boolean(), "true or false", node, place)) {
    flag = node.value.boolean();
  }
}

void read_field(ShapeFaults& /*faults*/, const Node& node, const std::string& /*place*/, Value& value) {
  value = node.value;
}

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, ArgumentMap& map) {
  if (faults.require(node.value.is_mapping(), "an object", node, place)) {
    map = node.value.mapping();
  }
}

void read_field(ShapeFaults& faults, const Node& node, const std::string& place, Parameter::Kind& kind) {
  if (!faults.require(node.value.is_text(), "text", node, place)) {
    return;
  }
  for (const ParameterKindWord& row : parameter_kinds) {
    if (row.word == node.value.text()) {
      kind = row.kind;
      return;
    }
  }
  std::array<std::string_view, parameter_kinds.size()> words;
  std::transform(parameter_kinds.begin(), parameter_kinds.end(), words.begin(),
                 [](const auto& row) { return row.word; });
  faults.add(node, place,
             "must be NAMED, VAR_POSITIONAL or VAR_KEYWORD, not " + quoted_form(node.value) +
                 did_you_mean(node.value.text(), words));
}

}  // namespace tool_binding::json
