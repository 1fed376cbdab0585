// SPDX-License-Identifier: MIT
#include <algorithm>
#include <stdexcept>

#include "requests.hpp"
#include "support/one_line.hpp"
#include "tool_binding/tool_schemas.hpp"

/// A tool and a request for it: admitted or refused, admitted again, and bound.
namespace tool_binding::fuzz {
namespace {

Kind kind_of(const ParamSpec& param) {
  constexpr std::pair<std::string_view, Kind> kinds[] = {{"integer", Kind::integer},
                                                         {"number", Kind::floating},
                                                         {"boolean", Kind::boolean},
                                                         {"string", Kind::text},
                                                         {"array", Kind::list}};
  return std::find_if(std::begin(kinds), std::end(kinds), [&](const auto& row) { return row.first == param.type; })
      ->second;
}

bool allows(const ParamSpec& param, const Value& value) {
  return value.is_text() && std::find(param.enum_.begin(), param.enum_.end(), value.shared_text()) != param.enum_.end();
}

bool is_of_its_type(const ParamSpec& param, const Value& value) {
  if (param.enum_.empty()) {
    return value.kind() == kind_of(param);
  }
  if (param.type != "array") {
    return allows(param, value);
  }
  return value.is_list() &&
         std::all_of(value.list().begin(), value.list().end(), [&](const Value& item) { return allows(param, item); });
}

void require_typed(const ToolSpec& tool, const ArgumentMap& admitted) {
  for (const auto& [name, value] : admitted) {
    require(!value.is_null(), "no admitted value is null", one_line(admitted));
    if (name != ACTION_PARAM) {
      const ParamSpec* const param = tool.param(name);
      require(param != nullptr && param->name == name, "admitted names are declared", one_line(admitted));
      require(is_of_its_type(*param, value), "admitted values have their parameter's type", one_line(admitted));
    }
  }
}

/// Gives nothing for a request that is refused.
std::optional<NormalizedArguments> admit(const ToolDeclaration& declared, const ToolSpec& tool,
                                         const ArgumentMap& request) {
  try {
    return normalize_arguments(tool, request);
  } catch (const ArgumentError& error) {
    require(!error.message().empty(), "a refusal says why");
  } catch (const std::overflow_error&) {
    require(has_wide_integer(declared, request), "only a wide integer overflows", one_line(request));
  }
  return std::nullopt;
}

ArgumentMap expected_binding(const ToolDeclaration& declared, const ToolSpec& tool, const ArgumentMap& arguments) {
  ArgumentMap expected;
  if (!declared.actions.empty()) {
    expected.set(ACTION_PARAM, effective_action(tool, arguments));
  }
  for (const ParamSpec& param : declared.params) {
    const Value* const given = arguments.find(param.name);
    const Value left_out = param.action_defaults.empty() ? param.default_ : Value();
    expected.set(param.name, given != nullptr ? *given : left_out);
  }
  return expected;
}

/// A handler that takes some of the context, of which "query" is a usual parameter's name too.
void require_keywords(const ArgumentMap& bound) {
  static const std::string item = "item";
  static const KeywordArguments context = {{"query", KeywordArgument::context(item)},
                                           {"engine", KeywordArgument::context(item)},
                                           {"limit", KeywordArgument::context(item)}};
  const Handler handler = {{{{.name = "query"}, {.name = "engine"}}}, {}};
  KeywordArguments expected;
  for (const auto& [name, value] : bound) {
    expected.set(name, value);
  }
  for (const std::string_view taken : {"query", "engine"}) {
    expected.set(taken, *context.find(taken));
  }
  const std::string keywords = one_line(handler_kwargs(handler, bound, context));
  require(keywords == one_line(expected), "keywords are what is bound and the context taken", keywords);
  require(one_line(handler_kwargs(handler, ArgumentMap(bound), context)) == keywords, "given away, the same");
}

void check(Choices choices) {
  const ToolDeclaration declared = make_tool(choices);
  const ToolSpec tool(declared);
  const ArgumentMap request = make_request(choices, declared);
  const std::string before = one_line(request);
  const auto answer = [&] { return outcome_of([&] { return normalize_arguments(tool, request); }); };
  const auto admitted = admit(declared, tool, request);
  require(answer() == answer(), "the same request has the same answer", before);
  for (const ArgumentMap& arguments : {request, admitted ? admitted->arguments() : ArgumentMap()}) {
    const ArgumentMap bound = bind_arguments(tool, arguments);
    require(one_line(bound) == one_line(expected_binding(declared, tool, arguments)),
            "bound are the declared names in their order and nothing else", before);
    require(one_line(bind_arguments(tool, ArgumentMap(arguments))) == one_line(bound),
            "given away they are bound alike");
    require_keywords(bound);
  }
  require(one_line(request) == before, "the request is as before", before);
  if (admitted && is_consistent(declared)) {
    require_typed(tool, admitted->arguments());
    const NormalizedArguments same(admitted->arguments());
    const std::string again = outcome_of([&] { return normalize_arguments(tool, admitted->arguments()); });
    require(again == one_line(same), "what was admitted is admitted as it is", again + "\n" + one_line(*admitted));
  }
}

}  // namespace
}  // namespace tool_binding::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tool_binding::fuzz::check({data, size});
  return 0;
}
