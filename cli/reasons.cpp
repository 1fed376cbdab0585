// SPDX-License-Identifier: MIT
#include "reasons.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "tool_binding/json/writer.hpp"
#include "undemanding.hpp"

namespace tool_binding::cli {

namespace {

/// What a person calls each kind of value, in the order of `Kind`.
constexpr std::array<std::string_view, 7> kind_words = {"null", "a boolean", "an integer", "a floating number",
                                                        "text", "a list",    "an object"};

std::string words_for(const Value& value) { return std::string(kind_words.at(static_cast<std::size_t>(value.kind()))); }

/// Whether two values read alike, as two that are no number do.
bool are_alike(const Value& left, const Value& right) {
  return left.kind() == right.kind() && quoted_form(left) == quoted_form(right);
}

/// Why one value became the other, where no bound took part.
std::string change(const ToolSpec& tool, const Text& name, const Value& sent, const Value& became) {
  const ParamSpec* const param = tool.param(name);
  if (are_alike(sent, became)) {
    return {};
  }
  if (name == ACTION_PARAM || (param != nullptr && !param->enum_.empty())) {
    return quoted_form(sent) + " read as declared";
  }
  return sent.kind() == became.kind() ? "items read as text" : words_for(sent) + " read as " + words_for(became);
}

std::string joined(const std::vector<std::string>& reasons) {
  std::string all;
  for (const std::string& reason : reasons) {
    all.append(all.empty() || reason.empty() ? "" : "; ").append(reason);
  }
  return all;
}

/// Why nothing is admitted of an argument that is no problem.
std::string why_left_out(const Text& name, const Value& sent) {
  if (sent.is_null()) {
    return "null";
  }
  return name == REPO_ROOT_ARGUMENT || name == "repo" ? "admission keeps it for itself" : "blank";
}

}  // namespace

/// The argument is admitted once more, alone: its notes are its own then, and what is stored is what became of it.
Became what_became(const ToolSpec& tool, const Text& name, const Value& sent, const NormalizedArguments& admitted) {
  const ParamSpec* const param = tool.param(name);
  const Text declared = param == nullptr || name == ACTION_PARAM ? name : param->name;
  const bool is_synonym = declared != name;
  Became superseded{std::string(name), std::nullopt, "'" + std::string(declared) + "' was given too"};
  std::optional<NormalizedArguments> found;
  try {
    found = normalize_arguments(undemanding(tool), {{name, sent}});
  } catch (const ArgumentError&) {
    return superseded;  // no problem of the request, so that nobody read it
  }
  const NormalizedArguments& alone = *found;
  const Value* const value = alone.arguments().find(declared);
  if (value == nullptr || !is_given({{name, sent}}, name)) {
    return {std::string(name), std::nullopt, why_left_out(name, sent)};
  }
  const auto& notes = admitted.notes();
  if (is_synonym && std::find(notes.begin(), notes.end(), alone.notes().front()) == notes.end()) {
    return superseded;
  }
  const bool is_bounded = name != ACTION_PARAM && alone.notes().size() > (is_synonym ? 1U : 0U);
  const bool is_coerced = !is_bounded || sent.kind() != value->kind();
  return {std::string(declared), *value,
          joined({is_synonym ? "sent as '" + std::string(name) + "', a synonym" : "",
                  is_coerced ? change(tool, name, sent, *value) : "", is_bounded ? "brought to a bound" : ""})};
}

std::string why_default(const ToolSpec& tool, const Text& name, const ArgumentMap& bound) {
  const ParamSpec* const param = tool.param(name);
  if (param == nullptr || param->action_defaults.empty()) {
    return "default";
  }
  const Value* const action = bound.find(ACTION_PARAM);
  const Text named = action != nullptr && action->is_text() ? action->shared_text() : Text();
  return "its default depends on the action: " + json::write(action_default(tool.name(), name, named)) +
         (named.empty() ? "" : " for '" + std::string(named) + "'");
}

bool is_given(const ArgumentMap& arguments, const Text& name) {
  const Value* const found = arguments.find(name);
  return found != nullptr && !found->is_null();
}

}  // namespace tool_binding::cli
