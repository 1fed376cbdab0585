// SPDX-License-Identifier: MIT
#include <utility>

#include "registry/prepared_tool.hpp"
#include "text/lower_case.hpp"
#include "text/white_space.hpp"
#include "tool_binding/tool_registry.hpp"
#include "values/forms.hpp"
#include "values/joined.hpp"

namespace tool_binding {

ToolSpec::ToolSpec(ToolDeclaration declaration)
    : prepared_(std::make_shared<const detail::PreparedTool>(std::move(declaration))) {}

const Text& ToolSpec::name() const noexcept { return prepared_->declared.name; }
const Text& ToolSpec::description() const noexcept { return prepared_->declared.description; }
std::span<const ParamSpec> ToolSpec::params() const noexcept { return prepared_->declared.params; }
std::span<const Text> ToolSpec::param_names() const noexcept { return prepared_->param_names; }
std::span<const ActionSpec> ToolSpec::actions() const noexcept { return prepared_->declared.actions; }
std::span<const Text> ToolSpec::action_names() const noexcept { return prepared_->action_names; }
const std::optional<Text>& ToolSpec::default_action() const noexcept { return prepared_->declared.default_action; }

const ParamSpec* ToolSpec::param(const Text& name) const noexcept {
  const detail::PreparedParam* const found = prepared_->param(name);
  return found == nullptr ? nullptr : found->spec;
}

const ActionSpec* ToolSpec::action(const Value& value) const {
  if (!value.is_text() || actions().empty()) {
    return nullptr;
  }
  std::uint32_t found = prepared_->actions.find(value.text());
  if (found == detail::NameIndex::absent) {
    found = prepared_->lowered_actions.find(text::lower_case(text::strip(value.text())));
  }
  return found == detail::NameIndex::absent ? nullptr : &actions()[found];
}

std::string ToolSpec::unknown_action_error(const Value& value) const {
  std::string error = "Unknown action '";
  append_plain_form(error, value);
  error.append("' for ").append(name()).append(": one of ");
  append_joined(error, action_names(), ", ");
  return error;
}

}  // namespace tool_binding
