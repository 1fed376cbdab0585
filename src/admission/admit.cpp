// SPDX-License-Identifier: MIT
#include <algorithm>
#include <memory>
#include <utility>

#include "admission/settling.hpp"
#include "admission/taking.hpp"
#include "tool_binding/tool_binding.hpp"

namespace tool_binding {

namespace {

/// The admitted arguments, in the order in which they come.
class AdmittedRow {
 public:
  AdmittedRow(const detail::CompiledTool& tool, std::size_t argument_count, ArgumentMap& arguments)
      : tool_(tool), arguments_(arguments) {
    arguments_.reserve(std::min(argument_count + 1, tool.bound_defaults.size()));
  }

  template <class Content>
  std::uint32_t add(std::uint32_t slot, Content&& value) {
    arguments_.append(tool_.bound_defaults[slot].name, std::forward<Content>(value));
    return static_cast<std::uint32_t>(arguments_.size() - 1);
  }
  void add_action(const Text& name) { arguments_.append(ACTION_PARAM, name); }
  void replace(std::uint32_t index, Value value) { arguments_.replace_at(index, std::move(value)); }
  [[nodiscard]] const Value& at(std::uint32_t index) const { return arguments_[index].value; }

 private:
  const detail::CompiledTool& tool_;
  ArgumentMap& arguments_;
};

}  // namespace

Admission admit(const ToolSpec& tool, const ArgumentMap& arguments) {
  const detail::CompiledTool& compiled = detail::compiled(tool);
  Admission admission;
  AdmittedRow row(compiled, arguments.size(), admission.arguments_);
  Normalizing state(compiled, row, admission.findings_);
  state.admit(arguments);
  admission.alias_hit_ = state.has_alias_hit();
  admission.has_problems_ = have_problems(admission.findings_);
  return admission;
}

std::span<const std::string> NormalizedArguments::notes() const& noexcept { return notes_; }

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

}  // namespace tool_binding
