// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "registry/tool_record.hpp"
#include "tool_binding/tool_registry.hpp"

namespace tool_binding {

bool is_reserved_name(std::string_view name) noexcept { return name == ACTION_PARAM || is_routing_param(name); }

bool ParamSpec::required_by(ActionName action) const noexcept {
  const auto& needing = action.name();
  return required || (needing && std::find(required_for.begin(), required_for.end(), *needing) != required_for.end());
}

const Text& ToolSpec::name() const noexcept { return record_->declared.name; }
const Text& ToolSpec::description() const noexcept { return record_->declared.description; }
std::span<const ParamSpec> ToolSpec::params() const noexcept { return record_->declared.params; }
std::span<const Text> ToolSpec::param_names() const noexcept { return record_->param_names; }
std::span<const ActionSpec> ToolSpec::actions() const noexcept { return record_->declared.actions; }
std::span<const Text> ToolSpec::action_names() const noexcept { return record_->action_names; }
const std::optional<Text>& ToolSpec::default_action() const noexcept { return record_->declared.default_action; }

const ParamSpec* ToolSpec::param(const Text& name) const noexcept {
  const std::uint32_t index = record_->params.find(name);
  return index == detail::NameIndex::absent ? nullptr : &params()[index];
}

const ActionSpec* ToolSpec::action(const Value& value) const { return record_->action(value); }

std::string ToolSpec::unknown_action_error(const Value& value) const {
  TextBuilder error;
  detail::append_unknown_action(error, *record_, value);
  return std::string(error.view());
}

}  // namespace tool_binding
