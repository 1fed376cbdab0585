// SPDX-License-Identifier: MIT
#include <algorithm>

#include "admission/missing.hpp"
#include "admission/normalizing.hpp"
#include "admission/words.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

void Normalizing::settle() {
  const std::optional<Text> action = _action();
  if (action || spec.declared.actions.empty()) {
    _check_required(action);
  }
  has_problems =
      std::any_of(findings.begin(), findings.end(), [](const Finding& finding) { return is_problem(finding.kind); });
}

/// The action that the request runs: the one it names, else the tool's default. None when there is none, or when the
/// named one was refused.
std::optional<Text> Normalizing::_action() {
  const bool has_slot = spec.action_slot != detail::NameIndex::absent;
  if (has_slot && slots[spec.action_slot].stored()) {
    const Value& action = arguments[slots[spec.action_slot].place].value;
    return action.is_text() ? action.shared_text() : plain_form(action);
  }
  if (_action_refused) {
    return std::nullopt;
  }
  if (const std::optional<Text>& action = spec.declared.default_action) {
    if (has_slot) {
      _store(spec.action_slot, *action);
    } else {
      arguments.append(ACTION_PARAM, *action);
    }
    return action;
  }
  if (!spec.declared.actions.empty()) {
    add_finding(findings, Finding::Kind::missing_action, spec);
  }
  return std::nullopt;
}

void Normalizing::_check_required(const std::optional<Text>& action) {
  const auto is_given = [this](const Param& param) {
    const Slot& slot = slots[param.slot];
    return slot.stored() && _given(*param.spec, arguments[slot.place].value);
  };
  _missing(spec, action, is_given, findings);
}

namespace {

/// The refusal of a call, of which `is_given(param)` says whether it gives a parameter.
template <class IsGiven>
std::optional<std::string> refusal_of(const ToolSpec& tool, ActionName action, const IsGiven& is_given) {
  Findings findings;
  const auto& name = action.name();
  _missing(detail::compiled(tool), name ? std::optional<Text>(*name) : std::nullopt, is_given, findings);
  return findings.empty() ? std::nullopt : std::optional<std::string>(joined_problems(findings).view());
}

}  // namespace

std::optional<std::string> missing_arguments(std::string_view tool, ActionName action, const ArgumentMap& arguments) {
  return missing_arguments(TOOLS[tool], action, arguments);
}

std::optional<std::string> missing_arguments(const ToolSpec& tool, ActionName action, const ArgumentMap& arguments) {
  return refusal_of(tool, action, [&](const detail::CompiledParam& param) {
    const Value* const value = arguments.find(param.spec->name);
    return value != nullptr && _given(*param.spec, *value);
  });
}

std::optional<std::string> detail::missing_keywords(const ToolSpec& tool, ActionName action,
                                                    const KeywordArguments& keywords) {
  return refusal_of(tool, action, [&](const CompiledParam& param) {
    const KeywordArgument* const found = keywords.find(param.spec->name);
    return found != nullptr && (found->is_context() || _given(*param.spec, found->value()));
  });
}

struct detail::Refusal {
  ToolSpec tool;  ///< keeps the record that the findings refer to
  std::vector<Finding> findings;
};

ArgumentError detail::argument_error(const ToolSpec& tool, Admission&& admission) {
  Text message = admission.refusal();
  auto refusal = std::make_shared<const Refusal>(Refusal{tool, std::move(admission).findings()});
  return {std::move(message), std::move(refusal)};
}

std::span<const Finding> ArgumentError::findings() const noexcept {
  return refusal_ == nullptr ? std::span<const Finding>() : std::span<const Finding>(refusal_->findings);
}

Text Admission::refusal() const { return joined_problems(findings_); }

std::vector<std::string> Admission::messages(bool of_problems) const {
  std::vector<std::string> messages;
  messages.reserve(findings_.size());
  for (const Finding& finding : findings_) {
    if (is_problem(finding.kind) == of_problems) {
      messages.push_back(finding.message());
    }
  }
  return messages;
}

}  // namespace tool_binding
