// SPDX-License-Identifier: MIT
#include "admission/settling.hpp"
#include "admission/taking.hpp"
#include "binding/context_items.hpp"
#include "registry/tool_record.hpp"
#include "tool_binding/call.hpp"

namespace tool_binding {

namespace {

/// The keywords of a call, which begin as the tool's defaults: what is admitted goes where it will be bound.
class KeywordRow {
 public:
  KeywordRow(const detail::CompiledTool& tool, std::size_t context_count, KeywordArguments& keywords)
      : keywords_(keywords) {
    keywords_ = tool.fresh_row<KeywordArguments>(context_count);
  }

  std::uint32_t add(std::uint32_t slot, Value value) {
    keywords_.replace_at(slot, std::move(value));
    return slot;
  }
  void add_action(const Text& /*name*/) noexcept {}  // which a tool without actions does not bind
  void replace(std::uint32_t index, Value value) { keywords_.replace_at(index, std::move(value)); }
  [[nodiscard]] const Value& at(std::uint32_t index) const { return keywords_[index].value.value(); }

 private:
  KeywordArguments& keywords_;
};

/// A default action may be named otherwise than it is declared.
void bind_action(KeywordArguments& keywords, const ToolSpec& tool, const detail::CompiledTool& compiled) {
  const Value& named = keywords[compiled.action_slot].value.value();
  if (!compiled.declares_action(named)) {
    keywords.replace_at(compiled.action_slot, detail::effective_action(tool, named));
  }
}

}  // namespace

PreparedCall prepare_call(const ToolSpec& tool, const Handler& handler, const ArgumentMap& arguments,
                          const KeywordArguments& context) {
  const detail::CompiledTool& compiled = detail::compiled(tool);
  PreparedCall call;
  KeywordRow row(compiled, context.size(), call.keywords_);
  Normalizing state(compiled, row, call.findings_);
  state.admit(arguments);
  call.alias_hit_ = state.has_alias_hit();
  call.has_problems_ = have_problems(call.findings_);
  if (call.has_problems_) {
    call.keywords_ = {};
    return call;
  }
  if (compiled.binds_action) {
    bind_action(call.keywords_, tool, compiled);
  }
  detail::add_context(call.keywords_, handler.signature.parameters, context,
                      [&](const Text& name) { return compiled.slots.find(name); });
  return call;
}

}  // namespace tool_binding
