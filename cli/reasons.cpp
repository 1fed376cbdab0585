// SPDX-License-Identifier: MIT
#include "reasons.hpp"

#include <algorithm>
#include <vector>

#include "tool_binding/json/writer.hpp"
#include "tool_binding/utils/text_values.hpp"

namespace tool_binding::cli {

namespace {

using Found = Finding::Kind;

/// Whether two values read alike, as two that are not numbers do.
bool are_alike(const Value& left, const Value& right) {
  return left.kind() == right.kind() && quoted_form(left) == quoted_form(right);
}

/// What admission found of one argument.
class ArgumentFindings {
 public:
  ArgumentFindings(const Admission& admission, const Text& argument)
      : findings_(admission.findings()), argument_(argument) {}

  [[nodiscard]] bool has(Found kind) const {
    return std::any_of(findings_.begin(), findings_.end(),
                       [&](const Finding& finding) { return finding.argument == argument_ && finding.kind == kind; });
  }
  [[nodiscard]] bool has_problem() const {
    return std::any_of(findings_.begin(), findings_.end(), [&](const Finding& finding) {
      return finding.argument == argument_ && is_problem(finding.kind);
    });
  }

 private:
  std::span<const Finding> findings_;
  const Text& argument_;
};

/// Why one value was used for the other, where no bound took part.
std::string change(const ParamSpec* param, const Value& sent, const Value& used) {
  if (are_alike(sent, used)) {
    return {};
  }
  if (param == nullptr || !param->enum_.empty()) {
    return quoted_form(sent) + " read as declared";
  }
  if (sent.kind() == used.kind()) {
    return "items read as text";
  }
  return std::string(kind_words(sent.kind())).append(" read as ").append(kind_words(used.kind()));
}

std::string joined(const std::vector<std::string>& reasons) {
  std::string all;
  for (const std::string& reason : reasons) {
    all.append(all.empty() || reason.empty() ? "" : "; ").append(reason);
  }
  return all;
}

/// Whether blank text leaves the argument out: the action, or a parameter whose blank is not a value.
bool is_blank_text(const ParamSpec* param, const Value& sent) {
  return sent.is_text() && is_blank(sent.text()) && (param == nullptr || !param->blank_is_value);
}

/// Whether the parameter's declared name gave it too, so that what a synonym gave did not stay.
bool is_superseded(const Request& request, const ParamSpec& param) {
  const Value* const named = request.arguments.find(param.name);
  return named != nullptr && !named->is_null() && !is_blank_text(&param, *named) &&
         !ArgumentFindings(request.admission, param.name).has_problem();
}

/// Why admission left the argument out, empty for one that it took.
std::string why_left_out(const Request& request, const Text& name, const ParamSpec* param, const Value& sent) {
  if (sent.is_null()) {
    return "null";
  }
  if (name != ACTION_PARAM && is_reserved_name(name)) {
    return "its name is reserved";
  }
  if (is_blank_text(param, sent)) {
    return "blank";
  }
  const ArgumentFindings findings(request.admission, name);
  if (findings.has(Found::synonym_left_out) || (findings.has(Found::synonym_read) && is_superseded(request, *param))) {
    return std::string("'").append(param->name).append("' was given too");
  }
  return {};
}

}  // namespace

bool is_refused(const Admission& admission, const Text& argument) {
  return ArgumentFindings(admission, argument).has_problem();
}

Treatment treatment_of(const Request& request, const Text& name, const Value& sent) {
  const ParamSpec* const param = name == ACTION_PARAM ? nullptr : request.tool.param(name);
  if (std::string reason = why_left_out(request, name, param, sent); !reason.empty()) {
    return {std::string(name), std::nullopt, std::move(reason)};
  }
  const Text& declared = param == nullptr ? name : param->name;
  const Value& value = *request.admission.arguments().find(declared);
  const ArgumentFindings findings(request.admission, name);
  const bool is_clamped = findings.has(Found::below_minimum) || findings.has(Found::above_maximum);
  const bool is_coerced = !is_clamped || sent.kind() != value.kind();
  return {std::string(declared), value,
          joined({declared == name ? "" : "sent as '" + std::string(name) + "', a synonym",
                  is_coerced ? change(param, sent, value) : "", is_clamped ? "clamped to its bounds" : ""})};
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

}  // namespace tool_binding::cli
