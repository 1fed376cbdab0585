// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "check/findings.hpp"
#include "tool_binding/argument_type.hpp"
#include "types/type_words.hpp"

namespace tool_binding {

namespace {

using Fault = RegistryFinding::Kind;

bool is_list(const ParamSpec& param) noexcept { return param.type == "array"; }

/// As what a handler gets the parameter: an enumeration's values are texts, whatever its type word. Null for a type
/// word that is none of the five.
const TypeRow* given_type(const ParamSpec& param) noexcept {
  const TypeRow* const type = type_row(param.type);
  return type == nullptr || is_list(param) || param.enum_.empty() ? type : type_row("string");
}

bool has_text_items(const ParamSpec& param) noexcept {
  return is_list(param) && (!param.enum_.empty() || param.items_type == Text("string"));
}

std::string listed(std::string_view type, const Text& name) {
  return std::string("argument<").append(type).append(">(\"").append(name).append("\")");
}

std::string optional_of(std::string_view type) { return std::string("std::optional<").append(type).append(">"); }

/// What is left to a call that runs one action and leaves the parameter out; the action's own default before the other.
const Value& default_for(const ParamSpec& param, const Text& action) {
  const Value* const differing = param.action_defaults.find(action);
  return differing == nullptr ? param.default_ : *differing;
}

/// The words for a call that leaves the parameter out and gets null for it; none where there is no such call.
std::optional<std::string> call_without(const ToolDeclaration& tool, const ParamSpec& param) {
  if (param.required) {
    return std::nullopt;
  }
  if (tool.actions.empty()) {
    return param.default_.is_null() ? std::optional<std::string>("a call") : std::nullopt;
  }
  for (const ActionSpec& action : tool.actions) {
    const bool is_needed =
        std::find(param.required_for.begin(), param.required_for.end(), action.name) != param.required_for.end();
    if (!is_needed && default_for(param, action.name).is_null()) {
      return "a call of " + quoted(action.name);
    }
  }
  return std::nullopt;
}

/// As what a parameter is taken best.
std::string best_type(const ToolDeclaration& tool, const ParamSpec& param) {
  const TypeRow* const given = given_type(param);
  const std::string type = has_text_items(param) ? "std::vector<std::string>"
                           : given == nullptr    ? "tool_binding::Value"
                                                 : std::string(given->taken_as);
  return call_without(tool, param) ? optional_of(type) : type;
}

/// Checks one handler's parameters, one after another.
class HandlerChecker {
 public:
  HandlerChecker(const ToolDeclaration& tool, const Signature& signature, const KeywordArguments* offered,
                 const std::string& place, RegistryFindings& findings)
      : tool_(tool), signature_(signature), offered_(offered), place_(place), findings_(findings) {}

  void check() {
    for (std::size_t index = 0; index < signature_.parameters.size(); ++index) {
      const Parameter& parameter = signature_.parameters[index];
      here_ = item_place(member_place(place_, "parameters"), index);
      if (parameter.item != nullptr) {
        check_item(parameter);
      } else if (parameter.type != nullptr) {
        check_argument(parameter.name, *parameter.type);
      }
    }
    if (signature_.complete && !takes_rest()) {
      check_unlisted();
    }
  }

 private:
  void check_item(const Parameter& parameter);
  void check_argument(const Text& name, const ArgumentType& type);
  void check_kind(const ParamSpec& param, const ArgumentType& type, const TypeRow& given);
  void check_texts(const Text& name, const std::vector<Text>& declared, const ArgumentType& type);
  void check_default(const Text& name, const Value& value, const ArgumentType& type);
  void check_unlisted();

  void add(Fault kind, std::initializer_list<std::string_view> pieces) { findings_.add(kind, here_, pieces); }

  [[nodiscard]] const ParamSpec* declared(const Text& name) const {
    const auto found = std::find_if(tool_.params.begin(), tool_.params.end(),
                                    [&](const ParamSpec& param) { return param.name == name; });
    return found == tool_.params.end() ? nullptr : &*found;
  }

  [[nodiscard]] bool is_listed(const Text& name) const {
    return std::any_of(signature_.parameters.begin(), signature_.parameters.end(), [&](const Parameter& parameter) {
      return parameter.kind == Parameter::Kind::NAMED && parameter.name == name;
    });
  }

  [[nodiscard]] bool takes_rest() const {
    return std::any_of(signature_.parameters.begin(), signature_.parameters.end(),
                       [](const Parameter& parameter) { return parameter.kind == Parameter::Kind::VAR_KEYWORD; });
  }

  [[nodiscard]] std::vector<Text> bound_names() const;

  const ToolDeclaration& tool_;
  const Signature& signature_;
  const KeywordArguments* offered_;
  const std::string& place_;
  RegistryFindings& findings_;
  std::string here_;  ///< the place of the parameter being checked
};

std::vector<Text> names_of(const KeywordArguments& offered) {
  std::vector<Text> names;
  std::transform(offered.begin(), offered.end(), std::back_inserter(names),
                 [](const KeywordArguments::Entry& entry) { return entry.name; });
  return names;
}

/// The names that a call's bound arguments have.
std::vector<Text> HandlerChecker::bound_names() const {
  std::vector<Text> names;
  if (!tool_.actions.empty()) {
    names.emplace_back(ACTION_PARAM);
  }
  std::transform(tool_.params.begin(), tool_.params.end(), std::back_inserter(names),
                 [](const ParamSpec& param) { return param.name; });
  return names;
}

void HandlerChecker::check_item(const Parameter& parameter) {
  if (offered_ == nullptr) {
    return;
  }
  const KeywordArgument* const offer = offered_->find(parameter.name);
  if (offer == nullptr) {
    add(Fault::unoffered_item, {quoted(parameter.name), did_you_mean(parameter.name, names_of(*offered_))});
  } else if (!offer->is_item(*parameter.item)) {
    add(Fault::item_type,
        {quoted(parameter.name), offer->is_context() ? offer->item_type_name() : "a value", parameter.item->name});
  }
}

void HandlerChecker::check_argument(const Text& name, const ArgumentType& type) {
  const KeywordArgument* const offer = offered_ == nullptr ? nullptr : offered_->find(name);
  if (offer != nullptr && offer->is_context()) {
    add(Fault::item_type, {quoted(name), offer->item_type_name(), type.name()});
  } else if (offer != nullptr) {
    check_default(name, offer->value(), type);
  } else if (name == ACTION_PARAM && !tool_.actions.empty()) {
    std::vector<Text> actions;
    std::transform(tool_.actions.begin(), tool_.actions.end(), std::back_inserter(actions),
                   [](const ActionSpec& action) { return action.name; });
    check_kind({.name = name, .type = "string", .enum_ = std::move(actions), .required = true}, type,
               *type_row("string"));
  } else if (const ParamSpec* const param = declared(name); param == nullptr) {
    add(Fault::undeclared_parameter, {quoted(name), did_you_mean(name, bound_names())});
  } else if (const TypeRow* const given = given_type(*param); given != nullptr) {
    check_kind(*param, type, *given);
  }
}

/// Whether the type takes whatever a call can give for the parameter.
void HandlerChecker::check_kind(const ParamSpec& param, const ArgumentType& type, const TypeRow& given) {
  const bool has_other_items =
      has_text_items(param) && type.items != nullptr && !type.items->kinds.contains(Kind::text);
  if (!type.kinds.contains(given.kind) || has_other_items) {
    add(Fault::argument_type, {quoted(param.name), has_text_items(param) ? "a list of texts" : given.given, type.name(),
                               listed(best_type(tool_, param), param.name)});
    return;
  }
  if (const auto call = call_without(tool_, param); call && !type.kinds.contains(Kind::null)) {
    add(Fault::null_argument, {quoted(param.name), *call, listed(optional_of(type.name()), param.name)});
  }
  const ArgumentType& one = type.items == nullptr ? type : *type.items;
  if (one.texts != nullptr) {
    check_texts(param.name, param.enum_, one);
  }
  check_default(param.name, param.default_, type);
  for (const ArgumentMap::Entry& entry : param.action_defaults) {
    check_default(param.name, entry.value, type);
  }
}

/// Whether an enumeration's type has a value for each text that the parameter allows.
void HandlerChecker::check_texts(const Text& name, const std::vector<Text>& declared, const ArgumentType& type) {
  if (declared.empty()) {
    add(Fault::open_enumeration, {quoted(name), type.name(), type.wanted()});
  }
  for (const Text& text : declared) {
    if (!type.reads(text)) {
      add(Fault::no_enumerator, {quoted(text), type.name(), type.wanted()});
    }
  }
}

void HandlerChecker::check_default(const Text& name, const Value& value, const ArgumentType& type) {
  if (!value.is_null() && !type.reads(value)) {
    add(Fault::argument_value, {quoted(name), quoted_form(value), type.name(), type.wanted()});
  }
}

void HandlerChecker::check_unlisted() {
  here_ = place_;
  for (const Text& name : bound_names()) {
    if (!is_listed(name)) {
      const ParamSpec* const param = declared(name);
      add(Fault::unlisted_parameter,
          {quoted(name), listed(param == nullptr ? "std::string" : best_type(tool_, *param), name)});
    }
  }
}

}  // namespace

void check_types(const ToolDeclaration& tool, const Signature& signature, const KeywordArguments* offered,
                 const std::string& place, RegistryFindings& findings) {
  HandlerChecker(tool, signature, offered, place, findings).check();
}

}  // namespace tool_binding
