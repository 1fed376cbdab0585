// SPDX-License-Identifier: MIT
#include <optional>
#include <string>
#include <utility>

#include "compile/compiled_tool.hpp"
#include "tool_binding/detail/assert.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/typed_handler.hpp"

namespace tool_binding::detail {

namespace {

/// "the handler of search", or "the handler" where its tool is not known.
std::string handler_of(const std::optional<ToolSpec>& tool) {
  return tool ? "the handler of " + std::string(tool->name()) : "the handler";
}

[[noreturn]] void throw_missing(const std::optional<ToolSpec>& tool, const Text& name) {
  std::string message = handler_of(tool).append(" takes ").append(quoted_form(name));
  throw LookupError(message.append(", which the call does not have"));
}

/// Throws for a keyword that is none of what the parameter takes, whatever a caller sends.
[[noreturn]] void throw_other(const std::optional<ToolSpec>& tool, const Parameter& parameter,
                              const KeywordArgument& given) {
  std::string message = handler_of(tool).append(" takes ").append(quoted_form(parameter.name)).append(" as ");
  message.append(parameter.item == nullptr ? parameter.type->name()
                                           : "a context item of the type " + std::string(parameter.item->name));
  message.append(", and was given ");
  message.append(given.is_context() ? "a context item of the type " + std::string(given.item_type_name())
                                    : quoted_form(given.value()));
  throw TypeError(message);
}

void add_problem(std::string& problems, const std::optional<ToolSpec>& tool, const Parameter& parameter,
                 std::string_view must, const ArgumentType& type, const Value& value) {
  problems.append(problems.empty() ? "Parameter '" : "; Parameter '").append(parameter.name).append("'");
  if (tool) {
    problems.append(" of ").append(tool->name());
  }
  problems.append(must).append(type.wanted()).append(", not ").append(quoted_form(value));
}

/// Adds a problem for a value of the right kind that the type does not hold, or for each such item of a list.
void add_problems(std::string& problems, const std::optional<ToolSpec>& tool, const Parameter& parameter,
                  const Value& value) {
  if (!value.is_list() || parameter.type->items == nullptr) {
    add_problem(problems, tool, parameter, " must be ", *parameter.type, value);
    return;
  }
  for (const Value& item : value.list()) {
    if (!parameter.type->items->reads(item)) {
      add_problem(problems, tool, parameter, " must each be ", *parameter.type->items, item);
    }
  }
}

}  // namespace

Listing::Listing(Signature listed) : signature(std::move(listed)) {
  rows.reserve(signature.parameters.size());
  for (const Parameter& parameter : signature.parameters) {
    rows.push_back({parameter.name, rows.size(), nullptr});
  }
}

Listing::Listing(Signature listed, const ToolSpec& answered) : Listing(std::move(listed)) {
  tool = answered;
  const CompiledTool& compiled = detail::compiled(answered);
  for (std::size_t index = 0; index < rows.size(); ++index) {
    Row& row = rows[index];
    const std::uint32_t slot = compiled.slots.find(row.name);
    const std::size_t bound = compiled.bound_defaults.size();
    row.place = slot == NameIndex::absent ? bound : slot;  // context items come after what is bound
    const ParamSpec* const param = answered.param(row.name);
    if (signature.parameters[index].type != nullptr && param != nullptr && param->name == row.name &&
        !param->action_defaults.empty()) {
      row.differs = param;
    }
  }
}

const KeywordArgument& TypedCall::found(const Text& name) const {
  if (const KeywordArgument* const keyword = keywords.find(name); keyword != nullptr) {
    return *keyword;
  }
  throw_missing(listing.tool, name);
}

const Value& TypedCall::default_of(const ParamSpec& param) const {
  const KeywordArgument* const action = keywords.find(ACTION_PARAM);
  const Value* const named = action == nullptr ? nullptr : action->value_if();
  const Value* const differing =
      named != nullptr && named->is_text() ? param.action_defaults.find(named->shared_text()) : nullptr;
  return differing == nullptr ? param.default_ : *differing;
}

void TypedCall::refuse() const {
  std::string problems;
  for (std::size_t place = 0; place < listing.rows.size(); ++place) {
    const Parameter& parameter = listing.signature.parameters[place];
    if (parameter.type == nullptr && parameter.item == nullptr) {
      continue;
    }
    const KeywordArgument& given = keyword(place);
    if (parameter.item != nullptr ? !given.is_item(*parameter.item) : given.is_context()) {
      throw_other(listing.tool, parameter, given);
    }
    if (parameter.type == nullptr) {
      continue;
    }
    const Value& argument = value(place);
    if (!parameter.type->kinds.contains(argument.kind())) {
      throw_other(listing.tool, parameter, argument);
    }
    if (!parameter.type->reads(argument)) {
      add_problems(problems, listing.tool, parameter, argument);
    }
  }
  TOOL_BINDING_ASSERT(!problems.empty());
  throw ArgumentError(problems);
}

void refuse_keyword(const KeywordArguments& keywords, const Parameter& parameter) {
  const Listing listing(Signature{.parameters = {parameter}});
  TypedCall{keywords, listing}.refuse();
}

}  // namespace tool_binding::detail
