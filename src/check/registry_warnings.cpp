// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <utility>

#include "check/findings.hpp"
#include "compile/compiled_tool.hpp"
#include "text/code_points.hpp"
#include "tool_binding/detail/numbers.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

using Fault = RegistryFinding::Kind;

/// What clients that pass tools on to language models commonly take.
constexpr std::size_t longest_name = 64;
constexpr std::size_t most_tools = 128;
constexpr std::size_t most_params = 100;
constexpr std::size_t most_values = 500;
constexpr std::size_t longest_description = 1024;

bool is_usual_name(const Text& name) noexcept {
  return name.size() <= longest_name && std::all_of(name.view().begin(), name.view().end(), [](char byte) {
           return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
                  byte == '_' || byte == '-';
         });
}

bool is_nan(const Value& value) { return value.is_floating() && std::isnan(value.floating()); }

/// What admission makes of one argument of one parameter.
struct Admitted {
  std::optional<Value> value;  ///< none for an argument that was refused or left out
  std::string refusal;         ///< empty for one that was left out
};

/// Asks admission itself about the values of one parameter, apart from all others.
class ParameterAlone {
 public:
  ParameterAlone(const ToolDeclaration& tool, const ParamSpec& param)
      : name_(param.name), tool_({.name = tool.name, .params = {without_requirements(param)}}) {}

  [[nodiscard]] Admitted admit(const Value& value) const {
    try {
      const NormalizedArguments admitted = normalize_arguments(tool_, {{name_, value}});
      const Value* const found = admitted.arguments().find(name_);
      return {found == nullptr ? std::nullopt : std::optional(*found), ""};
    } catch (const ArgumentError& refusal) {
      return {std::nullopt, std::string(refusal.message())};
    } catch (const std::overflow_error& refusal) {
      return {std::nullopt, refusal.what()};
    }
  }

 private:
  static ParamSpec without_requirements(ParamSpec param) {
    param.synonyms.clear();
    param.required = false;
    param.required_for.clear();
    return param;
  }

  Text name_;
  ToolSpec tool_;
};

/// Checks one thing after another and collects the warnings.
class WarningChecker {
 public:
  void check(std::span<const RegistryEntry> entries) {
    require_at_most(most_tools, entries.size(), "tools", "tools");
    for (std::size_t index = 0; index < entries.size(); ++index) {
      const std::string place = item_place("tools", index);
      check_tool(entries[index].tool, place);
      check_actions(entries[index].tool, member_place(place, "actions"));
      for (std::size_t param = 0; param < entries[index].tool.params.size(); ++param) {
        check_param(entries[index].tool, entries[index].tool.params[param],
                    item_place(member_place(place, "params"), param));
      }
      check_handler(entries[index], member_place(place, "handler"));
    }
  }

  [[nodiscard]] std::vector<RegistryFinding> take() { return findings_.take(); }

 private:
  void check_tool(const ToolDeclaration& tool, const std::string& place);
  void check_actions(const ToolDeclaration& tool, const std::string& place);
  void check_param(const ToolDeclaration& tool, const ParamSpec& param, const std::string& place);
  void check_names(const ParamSpec& param, const std::string& place);
  void check_bounds(const ParamSpec& param, const std::string& place);
  void check_items(const ParamSpec& param, const std::string& place);
  void check_values(const ParameterAlone& alone, const ParamSpec& param, const std::string& place);
  void check_default(const ParameterAlone& alone, const Value& value, std::string place);
  void check_handler(const RegistryEntry& entry, const std::string& place);

  void require_usual_name(const Text& name, const std::string& place) {
    if (!is_usual_name(name)) {
      findings_.add(Fault::unusual_name, member_place(place, "name"), {quoted(name)});
    }
  }

  void require_at_most(std::size_t most, std::size_t count, std::string_view counted, std::string place) {
    if (count > most) {
      findings_.add(Fault::unusual_size, std::move(place), {std::to_string(count), counted, std::to_string(most)});
    }
  }

  RegistryFindings findings_;
};

/// How a tool looks to those who are told of it.
void WarningChecker::check_tool(const ToolDeclaration& tool, const std::string& place) {
  require_usual_name(tool.name, place);
  require_at_most(longest_description, text::count_code_points(tool.description), "characters",
                  member_place(place, "description"));
  require_at_most(most_params, tool.params.size(), "parameters", member_place(place, "params"));
  std::size_t values = tool.actions.size();
  for (const ParamSpec& param : tool.params) {
    values += param.enum_.size();
  }
  require_at_most(most_values, values, "values of enumerations", place);
}

/// A declared name is read as itself, and so is a synonym unless an earlier action takes it.
void WarningChecker::check_actions(const ToolDeclaration& tool, const std::string& place) {
  const ToolSpec spec(tool);
  for (std::size_t index = 0; index < tool.actions.size(); ++index) {
    const ActionSpec& action = tool.actions[index];
    for (std::size_t synonym = 0; synonym < action.synonyms.size(); ++synonym) {
      const Text& name = action.synonyms[synonym];
      const ActionSpec* const read = spec.action(Value(name));
      const auto clashes = [&](const ActionSpec& other) {
        return &other != &action &&
               (other.name == name || std::count(other.synonyms.begin(), other.synonyms.end(), name) != 0);
      };
      std::string synonym_place = item_place(member_place(item_place(place, index), "synonyms"), synonym);
      if (read == nullptr) {
        findings_.add(Fault::unmatched_synonym, std::move(synonym_place), {quoted(name)});
      } else if (read->name != action.name && std::none_of(tool.actions.begin(), tool.actions.end(), clashes)) {
        findings_.add(Fault::shadowed_synonym, std::move(synonym_place), {quoted(name), quoted(read->name)});
      }
    }
  }
}

void WarningChecker::check_param(const ToolDeclaration& tool, const ParamSpec& param, const std::string& place) {
  check_names(param, place);
  check_bounds(param, place);
  check_items(param, place);
  const bool has_bounds =
      (param.minimum.is_null() || is_number(param.minimum)) && (param.maximum.is_null() || is_number(param.maximum));
  if (is_reserved_name(param.name) || !has_bounds || type_row(param.type) == nullptr) {
    return;  // admission would not check it as it was meant
  }
  const ParameterAlone alone(tool, param);
  check_values(alone, param, member_place(place, "enum"));
  check_default(alone, param.default_, member_place(place, "default"));
  for (const auto& [action, value] : param.action_defaults) {
    check_default(alone, value, member_place(member_place(place, "action_defaults"), action));
  }
}

void WarningChecker::check_names(const ParamSpec& param, const std::string& place) {
  if (is_reserved_name(param.name)) {
    findings_.add(Fault::kept_name, member_place(place, "name"), {quoted(param.name)});
  } else {
    require_usual_name(param.name, place);
  }
  for (std::size_t index = 0; index < param.synonyms.size(); ++index) {
    if (is_reserved_name(param.synonyms[index])) {
      findings_.add(Fault::kept_name, item_place(member_place(place, "synonyms"), index),
                    {quoted(param.synonyms[index])});
    }
  }
}

void WarningChecker::check_bounds(const ParamSpec& param, const std::string& place) {
  for (const auto& [name, bound] : {std::pair("minimum", &param.minimum), std::pair("maximum", &param.maximum)}) {
    if (is_nan(*bound)) {
      findings_.add(Fault::idle_bound, member_place(place, name), {quoted_form(*bound), "every number is within it"});
    } else if (!param.enum_.empty() && is_number(*bound)) {
      findings_.add(Fault::idle_bound, member_place(place, name),
                    {quoted_form(*bound), "the enumeration says what is allowed"});
    }
  }
  if (param.enum_.empty() && is_number(param.minimum) && is_number(param.maximum) &&
      compare_numbers(param.minimum, param.maximum) > 0) {
    findings_.add(Fault::crossed_bounds, member_place(place, "minimum"),
                  {quoted_form(param.minimum), quoted_form(param.maximum)});
  }
}

void WarningChecker::check_items(const ParamSpec& param, const std::string& place) {
  const bool is_read = param.type == "array" && param.items_type == Text("string");
  if (param.items_type && !is_read && type_row(*param.items_type) != nullptr) {
    findings_.add(Fault::idle_items_type, member_place(place, "items_type"), {quoted(*param.items_type)});
  }
}

/// Each value is sent as the text that it is: whatever else a request sends must say the same.
void WarningChecker::check_values(const ParameterAlone& alone, const ParamSpec& param, const std::string& place) {
  const bool is_array = param.type == "array";
  for (std::size_t index = 0; index < param.enum_.size(); ++index) {
    const Text& value = param.enum_[index];
    const Admitted admitted = alone.admit(is_array ? Value(std::vector<Value>{value}) : Value(value));
    if (!admitted.value) {
      findings_.add(Fault::unmatched_value, item_place(place, index),
                    {quoted(value), admitted.refusal.empty() ? "left out, as blank text is" : "refused"});
      continue;
    }
    const Value& read = is_array ? admitted.value->list().front() : *admitted.value;
    const auto earlier = param.enum_.begin() + static_cast<std::ptrdiff_t>(index);
    if (read != Value(value) || std::find(param.enum_.begin(), earlier, value) != earlier) {
      findings_.add(Fault::shadowed_value, item_place(place, index), {quoted(value), quoted_form(read)});
    }
  }
}

/// Values are compared as they are shown: two NaNs are alike, 1 and 1.0 are not.
void WarningChecker::check_default(const ParameterAlone& alone, const Value& value, std::string place) {
  if (value.is_null()) {
    return;
  }
  const Admitted admitted = alone.admit(value);
  const std::string shown = quoted_form(value);
  if (!admitted.refusal.empty()) {
    findings_.add(Fault::refused_default, std::move(place), {shown, admitted.refusal});
  } else if (!admitted.value) {
    findings_.add(Fault::changed_default, std::move(place), {shown, "be left out, as blank text is,"});
  } else if (const std::string became = quoted_form(*admitted.value); became != shown) {
    findings_.add(Fault::changed_default, std::move(place), {shown, "become " + became});
  }
}

void WarningChecker::check_handler(const RegistryEntry& entry, const std::string& place) {
  if (entry.handler.signature.complete) {
    return;  // what it leaves out is an error
  }
  const ToolSpec tool(entry.tool);
  for (const auto& [name, value] : detail::compiled(tool).bound_defaults) {
    if (!entry.handler.signature.parameters.take(name)) {
      findings_.add(Fault::keyword_without_taker, place, {quoted(name)});
    }
  }
}

}  // namespace

std::vector<RegistryFinding> registry_warnings(std::span<const RegistryEntry> entries) {
  WarningChecker checker;
  checker.check(entries);
  return checker.take();
}

}  // namespace tool_binding
