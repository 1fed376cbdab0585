// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <utility>

#include "check/findings.hpp"
#include "near_names/nearest.hpp"
#include "text/lower_case.hpp"
#include "tool_binding/detail/numbers.hpp"
#include "types/type_words.hpp"

namespace tool_binding {

namespace {

using Fault = RegistryFinding::Kind;

/// Names by the place at which each is declared first.
using Places = std::map<Text, std::string>;

bool is_bound(const Value& value) noexcept { return value.is_null() || is_number(value); }

std::string proposal(std::string_view word) { return "; did you mean '" + std::string(word) + "'?"; }

std::vector<Text> type_words() {
  std::vector<Text> words;
  words.reserve(TYPE_WORDS.size());
  for (const TypeRow& row : TYPE_WORDS) {
    words.emplace_back(row.word);
  }
  return words;
}

/// Checks one thing after another and collects the faults.
class ErrorChecker {
 public:
  explicit ErrorChecker(const KeywordArguments* offered) : offered_(offered) {}

  void check(std::span<const RegistryEntry> entries) {
    Places tools;
    for (std::size_t index = 0; index < entries.size(); ++index) {
      const std::string place = item_place("tools", index);
      declare(tools, entries[index].tool.name, member_place(place, "name"));
      check_actions(entries[index].tool, place);
      check_params(entries[index].tool, place);
      check_handler(entries[index].tool, entries[index].handler.signature, member_place(place, "handler"));
    }
  }

  [[nodiscard]] std::vector<RegistryFinding> take() { return findings_.take(); }

 private:
  void check_actions(const ToolDeclaration& tool, const std::string& place);
  void check_params(const ToolDeclaration& tool, const std::string& place);
  void check_synonyms(const std::vector<Text>& of_one, const std::string& place, const Places& names, Places& synonyms);
  void check_param(const ParamSpec& param, const std::string& place);
  void check_references(const ToolDeclaration& tool, const ParamSpec& param, const std::string& place);
  void check_handler(const ToolDeclaration& tool, const Signature& signature, const std::string& place);

  /// Notes a declared name, which must be new among `names`.
  void declare(Places& names, const Text& name, std::string place) {
    if (!require_name(name, place)) {
      return;
    }
    const auto [first, is_new] = names.emplace(name, place);
    if (!is_new) {
      findings_.add(Fault::repeated_name, std::move(place), {quoted(name), first->second});
    }
  }

  bool require_name(const Text& name, const std::string& place) {
    if (name.empty()) {
      findings_.add(Fault::empty_name, place);
    }
    return !name.empty();
  }

  void require_action(const ToolDeclaration& tool, const Text& name, std::string place) {
    const auto is_named = [&](const ActionSpec& action) { return action.name == name; };
    if (std::any_of(tool.actions.begin(), tool.actions.end(), is_named)) {
      return;
    }
    std::vector<Text> declared;
    for (const ActionSpec& action : tool.actions) {
      declared.push_back(action.name);
    }
    findings_.add(Fault::undeclared_action, std::move(place), {quoted(name), did_you_mean(name, declared)});
  }

  void require_type(const Text& word, std::string place) {
    if (type_row(word) == nullptr) {
      const auto meant = type_word_of(word);
      findings_.add(Fault::type_word, std::move(place),
                    {quoted(word), meant ? proposal(*meant) : did_you_mean(word, type_words())});
    }
  }

  const KeywordArguments* offered_;  ///< null where it is not known
  RegistryFindings findings_;
};

void ErrorChecker::check_actions(const ToolDeclaration& tool, const std::string& place) {
  const auto action_place = [&](std::size_t index) { return item_place(member_place(place, "actions"), index); };
  Places names;
  Places synonyms;
  for (std::size_t index = 0; index < tool.actions.size(); ++index) {
    declare(names, tool.actions[index].name, member_place(action_place(index), "name"));
  }
  for (std::size_t index = 0; index < tool.actions.size(); ++index) {
    check_synonyms(tool.actions[index].synonyms, action_place(index), names, synonyms);
  }
  if (tool.default_action) {
    require_action(tool, *tool.default_action, member_place(place, "default_action"));
  }
}

void ErrorChecker::check_params(const ToolDeclaration& tool, const std::string& place) {
  const auto param_place = [&](std::size_t index) { return item_place(member_place(place, "params"), index); };
  Places names;
  Places synonyms;
  for (std::size_t index = 0; index < tool.params.size(); ++index) {
    declare(names, tool.params[index].name, member_place(param_place(index), "name"));
  }
  for (std::size_t index = 0; index < tool.params.size(); ++index) {
    check_synonyms(tool.params[index].synonyms, param_place(index), names, synonyms);
    check_param(tool.params[index], param_place(index));
    check_references(tool, tool.params[index], param_place(index));
  }
}

/// The synonyms of one parameter or action, which is at `place`, among the declared names and earlier synonyms.
void ErrorChecker::check_synonyms(const std::vector<Text>& of_one, const std::string& place, const Places& names,
                                  Places& synonyms) {
  const std::string synonyms_place = member_place(place, "synonyms");
  for (std::size_t index = 0; index < of_one.size(); ++index) {
    const Text& synonym = of_one[index];
    std::string synonym_place = item_place(synonyms_place, index);
    if (!require_name(synonym, synonym_place)) {
      continue;
    }
    if (const auto name = names.find(synonym); name != names.end()) {
      findings_.add(Fault::synonym_of_name, std::move(synonym_place), {quoted(synonym), name->second});
    } else if (const auto [first, is_new] = synonyms.emplace(synonym, synonym_place);
               !is_new && !is_place_within(first->second, place)) {
      findings_.add(Fault::repeated_synonym, std::move(synonym_place), {quoted(synonym), first->second});
    }
  }
}

void ErrorChecker::check_param(const ParamSpec& param, const std::string& place) {
  require_type(param.type, member_place(place, "type"));
  if (param.items_type) {
    require_type(*param.items_type, member_place(place, "items_type"));
  }
  for (const auto& [name, bound] : {std::pair("minimum", &param.minimum), std::pair("maximum", &param.maximum)}) {
    if (!is_bound(*bound)) {
      findings_.add(Fault::bound, member_place(place, name), {quoted_form(*bound)});
    }
  }
}

void ErrorChecker::check_references(const ToolDeclaration& tool, const ParamSpec& param, const std::string& place) {
  for (std::size_t index = 0; index < param.required_for.size(); ++index) {
    require_action(tool, param.required_for[index], item_place(member_place(place, "required_for"), index));
  }
  for (const ArgumentMap::Entry& entry : param.action_defaults) {
    require_action(tool, entry.name, member_place(member_place(place, "action_defaults"), entry.name));
  }
}

void ErrorChecker::check_handler(const ToolDeclaration& tool, const Signature& signature, const std::string& place) {
  Places names;
  const std::string parameters_place = member_place(place, "parameters");
  for (std::size_t index = 0; index < signature.parameters.size(); ++index) {
    declare(names, signature.parameters[index].name, member_place(item_place(parameters_place, index), "name"));
  }
  check_types(tool, signature, offered_, place, findings_);
}

}  // namespace

std::string did_you_mean(std::string_view given, std::span<const std::string_view> names) {
  std::vector<Text> lowered;
  std::transform(names.begin(), names.end(), std::back_inserter(lowered),
                 [](std::string_view name) { return text::lower_case(name); });
  const detail::NearCandidates candidates(lowered);
  const Text* const near = _nearest(text::lower_case(given), candidates);
  if (near == nullptr) {
    return "";
  }
  return proposal(names[static_cast<std::size_t>(std::find(lowered.begin(), lowered.end(), *near) - lowered.begin())]);
}

std::string did_you_mean(const Text& given, const std::vector<Text>& names) {
  return did_you_mean(given.view(), std::vector<std::string_view>(names.begin(), names.end()));
}

std::vector<RegistryFinding> registry_errors(std::span<const RegistryEntry> entries, const KeywordArguments* offered) {
  ErrorChecker checker(offered);
  checker.check(entries);
  return checker.take();
}

}  // namespace tool_binding
