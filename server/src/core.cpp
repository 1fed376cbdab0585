// SPDX-License-Identifier: MIT
#include "core.hpp"

#include <algorithm>
#include <utility>

#include "tool_binding/admission.hpp"
#include "tool_binding/errors.hpp"
#include "tool_binding/json/writer.hpp"
#include "tool_binding/registry_check.hpp"
#include "tool_list.hpp"
#include "wire.hpp"

namespace tool_binding::server {

ToolHandler::ToolHandler(Handler handler)
    : signature_(handler.signature), for_tool_([handler = std::move(handler)](const ToolSpec& tool) {
        Handler::Function function = handler.for_tool ? handler.for_tool(tool) : handler.function;
        return Function([function = std::move(function)](const KeywordArguments& keywords) -> Answer {
          return function(keywords);
        });
      }) {}

namespace detail {

namespace {

bool declares(const ToolDeclaration& tool, const Text& name) {
  return std::any_of(tool.params.begin(), tool.params.end(),
                     [&](const ParamSpec& param) { return param.name == name; });
}

/// The names under which a handler takes its call: those of its items of that type; "call" where it lists no types.
std::vector<Text> call_names_of(const ServedTool& served) {
  Call nobodys_call;
  const KeywordArgument item = KeywordArgument::context(nobodys_call);
  std::vector<Text> names;
  for (const Parameter& parameter : served.handler.signature().parameters) {
    const bool takes_any = parameter.kind == Parameter::Kind::VAR_KEYWORD;
    const bool is_untyped = takes_any || (parameter.name == call_item && parameter.type == nullptr);
    if (parameter.item != nullptr && item.is_item(*parameter.item)) {
      names.push_back(parameter.name);
    } else if (parameter.item == nullptr && is_untyped && !declares(served.tool, call_item)) {
      names.emplace_back(call_item);
    }
  }
  return names;
}

/// What the handlers may take, for the check of what they do take.
KeywordArguments offered_to(const std::vector<ServedTool>& tools, const KeywordArguments& context, Call& call) {
  KeywordArguments offered = context;
  for (const ServedTool& tool : tools) {
    for (const Text& name : call_names_of(tool)) {
      if (context.contains(name)) {
        throw ValueError("the context item '" + std::string(name) +
                         "' is a handler's name for its call: rename either");
      }
      offered.set(name, KeywordArgument::context(call));
    }
  }
  return offered;
}

/// A tool without parameters whose actions have the names of the tools.
ToolDeclaration naming(const std::vector<ServedTool>& tools) {
  ToolDeclaration declaration{.name = "tools"};
  for (const ServedTool& tool : tools) {
    declaration.actions.push_back({.name = tool.tool.name});
  }
  return declaration;
}

}  // namespace

std::string sendable(const Value& value) {
  std::string text = json::write(value);
  make_sendable(text);
  return text;
}

ArgumentMap finished_result(ArgumentMap result, const Core& core, const Version& version) {
  if (version.is_modern) {
    result.append("resultType", "complete");
    result.append("_meta", ArgumentMap{{"io.modelcontextprotocol/serverInfo", core.server_info(version)}});
  }
  return result;
}

Core::Core(ServerInfo info, const std::vector<ServedTool>& tools, Options options)
    : info_(std::move(info)),
      options_(std::move(options)),
      own_table_(options_.table == nullptr ? std::make_unique<ToolTable>() : nullptr),
      names_(naming(tools)) {
  declare(tools);
  for (const Version& version : all_versions()) {
    results_.push_back({made_greeting(version), made_tool_list(version)});
  }
}

void Core::declare(const std::vector<ServedTool>& tools) {
  ToolTable& table = own_table_ ? *own_table_ : *options_.table;
  std::vector<RegistryEntry> entries;
  entries.reserve(tools.size());
  for (const ServedTool& tool : tools) {
    entries.push_back({.tool = tool.tool, .handler = {.signature = tool.handler.signature(), .function = {}}});
  }
  Call nobodys_call;
  static_cast<void>(declare_tools(table, std::move(entries), offered_to(tools, options_.context, nobodys_call)));
  for (const ServedTool& served : tools) {
    const ToolSpec& spec = table[served.tool.name];
    Tool tool = {.spec = &spec,
                 .shape = {.signature = served.handler.signature(), .function = {}},
                 .function = served.handler.for_tool(spec),
                 .call_names = call_names_of(served),
                 .served = served};
    has_log_ = has_log_ || !tool.call_names.empty();
    places_.append(spec.name(), tools_.size());
    tools_.push_back(std::move(tool));
  }
}

const Tool* Core::tool_named(const Text& name) const {
  const std::size_t* const place = places_.find(name);
  return place == nullptr ? nullptr : &tools_[*place];
}

std::string Core::unknown_tool_words(const Text& name) const {
  std::string words = "Unknown tool '" + shortened(name, 200) + "'";
  const Admission admission = admit(names_, {{ACTION_PARAM, name}});
  for (const Finding& finding : admission.findings()) {
    const Text near = finding.used.is_text() ? finding.used.shared_text() : finding.proposal;
    if (!near.empty()) {
      return words.append(". Did you mean '").append(near).append("'?");
    }
  }
  return words;
}

Value Core::server_info(const Version& version) const {
  ArgumentMap info = {{"name", info_.name}, {"version", info_.version}};
  if (version.has_titles && !info_.title.empty()) {
    info.append("title", info_.title);
  }
  return info;
}

const Core::Results& Core::at(const Version& version) const {
  return results_[static_cast<std::size_t>(&version - all_versions().data())];
}

std::string Core::made_greeting(const Version& version) const {
  ArgumentMap capabilities = {{"tools", ArgumentMap()}};
  if (has_log_) {
    capabilities.append("logging", ArgumentMap());
  }
  ArgumentMap result;
  if (version.is_modern) {
    result = {{"supportedVersions", std::vector<Value>{version.name}}, {"capabilities", capabilities}};
    result.append("ttlMs", 0);
    result.append("cacheScope", "private");
  } else {
    result = {{"protocolVersion", version.name}, {"capabilities", capabilities}, {"serverInfo", server_info(version)}};
  }
  if (!info_.instructions.empty()) {
    result.append("instructions", info_.instructions);
  }
  return sendable(finished_result(std::move(result), *this, version));
}

std::string Core::made_tool_list(const Version& version) const {
  std::vector<Value> listed;
  for (const Tool& tool : tools_) {
    listed.push_back(listed_tool(*tool.spec, tool.served, version, options_.schemas));
  }
  ArgumentMap result = {{"tools", std::move(listed)}};
  if (version.is_modern) {
    result.append("ttlMs", 0);
    result.append("cacheScope", "private");
  }
  return sendable(finished_result(std::move(result), *this, version));
}

}  // namespace detail

}  // namespace tool_binding::server
