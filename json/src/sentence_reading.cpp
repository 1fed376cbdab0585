// SPDX-License-Identifier: MIT
#include "sentence_reading.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "tool_binding/json/parse_error.hpp"
#include "tool_binding/json/reader.hpp"

namespace tool_binding::json {

namespace {

constexpr std::string_view after_value = " for ";
constexpr std::string_view otherwise = " otherwise.";

bool take(std::string_view& rest, std::string_view piece) {
  const bool begins = rest.starts_with(piece);
  rest.remove_prefix(begins ? piece.size() : 0);
  return begins;
}

/// Takes a declared name from the start of `rest`; of two that fit the longer one.
const Text* take_action(std::string_view& rest, const std::vector<ActionSpec>& actions) {
  const Text* longest = nullptr;
  for (const ActionSpec& action : actions) {
    if (rest.starts_with(action.name.view()) && (longest == nullptr || action.name.size() > longest->size())) {
      longest = &action.name;
    }
  }
  rest.remove_prefix(longest == nullptr ? 0 : longest->size());
  return longest;
}

/// Takes "find", "find and stats" or "find, list and stats".
std::vector<Text> take_actions(std::string_view& rest, const std::vector<ActionSpec>& actions) {
  std::vector<Text> taken;
  for (std::string_view ahead = rest;;) {
    const Text* const action = take_action(ahead, actions);
    if (action == nullptr) {
      return taken;
    }
    taken.push_back(*action);
    rest = ahead;
    if (!take(ahead, ", ") && !take(ahead, " and ")) {
      return taken;
    }
  }
}

/// Takes a value and what follows it, which may occur in the value too.
std::optional<Value> take_value(std::string_view& rest, std::string_view behind) {
  for (std::size_t end = rest.find(behind); end != std::string_view::npos; end = rest.find(behind, end + 1)) {
    try {
      const std::string_view words = rest.substr(0, end);
      Value value = words == "none" ? Value() : read(words);
      rest.remove_prefix(end + behind.size());
      return value;
    } catch (const ParseError&) {
      continue;
    }
  }
  return std::nullopt;
}

bool read_needed_by(ParamSpec& param, std::string_view sentence, const std::vector<ActionSpec>& actions) {
  if (!take(sentence, "Needed by ")) {
    return false;
  }
  const std::vector<Text> names = take_actions(sentence, actions);
  if (names.empty() || sentence != ".") {
    return false;
  }
  for (const Text& name : names) {
    if (!param.required_by(name)) {
      param.required_for.push_back(name);
    }
  }
  return true;
}

bool read_action_defaults(ParamSpec& param, std::string_view sentence, const std::vector<ActionSpec>& actions) {
  if (!take(sentence, "Default: ") || !param.default_.is_null()) {
    return false;
  }
  ArgumentMap defaults;
  do {
    if (std::string_view last = sentence; !defaults.empty()) {
      if (const auto value = take_value(last, otherwise); value && last.empty()) {
        param.default_ = *value;
        param.action_defaults = std::move(defaults);
        return true;
      }
    }
    const auto value = take_value(sentence, after_value);
    const std::vector<Text> names = value ? take_actions(sentence, actions) : std::vector<Text>();
    for (const Text& name : names) {
      defaults.set(name, *value);
    }
    if (names.empty()) {
      return false;
    }
  } while (take(sentence, ", "));
  return false;
}

}  // namespace

void read_rule_sentences(ToolDeclaration& tool) {
  for (ParamSpec& param : tool.params) {
    std::string_view rest = param.description;
    for (;;) {
      const std::size_t line = rest.rfind('\n') + 1;  // the first line where none is found
      const std::string_view sentence = rest.substr(line);
      if (!read_needed_by(param, sentence, tool.actions) && !read_action_defaults(param, sentence, tool.actions)) {
        break;
      }
      rest = rest.substr(0, line == 0 ? 0 : line - 1);
    }
    if (rest.size() != param.description.size()) {
      param.description = Text(std::string(rest));
    }
  }
}

}  // namespace tool_binding::json
