// SPDX-License-Identifier: MIT
#include "rule_sentences.hpp"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "effective_bounds.hpp"
#include "tool_binding/json/writer.hpp"

namespace tool_binding::json {

namespace {

/// "find", "find and stats" or "find, list and stats".
std::string enumerated(std::span<const Text> names) {
  std::string words;
  for (std::size_t index = 0; index < names.size(); ++index) {
    words.append(index == 0 ? "" : index + 1 == names.size() ? " and " : ", ").append(names[index]);
  }
  return words;
}

struct DefaultOfActions {
  Value value;
  std::vector<Text> actions;
};

/// The defaults that differ by action, each value once, in the order in which they are declared.
std::vector<DefaultOfActions> defaults_by_value(const ArgumentMap& action_defaults) {
  std::vector<DefaultOfActions> defaults;
  for (const auto& [action, value] : action_defaults) {
    auto found = std::find_if(defaults.begin(), defaults.end(),
                              [&sought = value](const DefaultOfActions& known) { return known.value == sought; });
    if (found == defaults.end()) {
      found = defaults.insert(found, {value, {}});
    }
    found->actions.push_back(action);
  }
  return defaults;
}

std::string default_words(const Value& value) { return value.is_null() ? "none" : write(value); }

}  // namespace

std::string needed_by_sentence(const ToolSpec& tool, const ParamSpec& param) {
  std::vector<Text> actions;
  std::copy_if(tool.action_names().begin(), tool.action_names().end(), std::back_inserter(actions),
               [&](const Text& action) { return !param.required && param.required_by(action); });
  return actions.empty() ? "" : "Needed by " + enumerated(actions) + ".";
}

std::string action_defaults_sentence(const ParamSpec& param) {
  if (param.action_defaults.empty()) {
    return {};
  }
  std::string words = "Default: ";
  for (const DefaultOfActions& known : defaults_by_value(param.action_defaults)) {
    words.append(words.ends_with(": ") ? "" : ", ").append(default_words(known.value));
    words.append(" for ").append(enumerated(known.actions));
  }
  return words.append(", ").append(default_words(param.default_)).append(" otherwise.");
}

std::string default_sentence(const ParamSpec& param) {
  const bool has_one = param.action_defaults.empty() && !param.default_.is_null() && is_finite(param.default_);
  return has_one ? "Default: " + write(param.default_) + "." : "";
}

std::string bounds_sentence(const ParamSpec& param) {
  const auto [minimum, maximum] = effective_bounds(param);
  if (minimum.is_null()) {
    return maximum.is_null() ? "" : "At most " + write(maximum) + ".";
  }
  return maximum.is_null() ? "At least " + write(minimum) + "."
                           : "From " + write(minimum) + " to " + write(maximum) + ".";
}

std::string enumeration_sentence(const ParamSpec& param) {
  std::string words;
  for (const Text& value : param.enum_) {
    words.append(words.empty() ? "" : ", ").append(write(Value(value)));
  }
  return words.empty() ? words : (param.type == "array" ? "Each one of: " : "One of: ") + words + ".";
}

}  // namespace tool_binding::json
