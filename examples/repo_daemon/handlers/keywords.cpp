// SPDX-License-Identifier: MIT
#include "handlers/keywords.hpp"

#include <limits>

#include "tool_binding/server/call.hpp"
#include "tool_binding/tool_binding.hpp"

namespace repo_daemon {

namespace tb = tool_binding;

namespace {

/// What a request gave, without what the daemon supplies.
tb::ArgumentMap arguments_of(const tb::KeywordArguments& keywords) {
  tb::ArgumentMap arguments;
  for (const auto& [name, keyword] : keywords) {
    if (!keyword.is_context()) {
      arguments.append(name, keyword.value());
    }
  }
  return arguments;
}

std::size_t count_of(const tb::Value& value) {
  return static_cast<std::size_t>(value.to_int64().value_or(std::numeric_limits<std::int64_t>::max()));
}

}  // namespace

std::optional<std::string_view> Keywords::action() const {
  const tb::KeywordArgument* const action = keywords_.find(tb::ACTION_PARAM);
  return action == nullptr || action->value().is_null() ? std::nullopt : std::optional(action->value().text());
}

tb::Value Keywords::value(const tb::Text& name) const {
  const tb::Value& bound = at(name).value();
  return bound.is_null() && action() ? tb::action_default(tool_, name, *action()) : bound;
}

std::string Keywords::text_or(const tb::Text& name, std::string_view otherwise) const {
  const tb::Value text = value(name);
  return std::string(text.is_null() ? otherwise : text.text());
}

std::vector<std::string> Keywords::texts(const tb::Text& name) const {
  const tb::Value list = value(name);
  std::vector<std::string> texts;
  if (!list.is_null()) {
    for (const tb::Value& item : list.list()) {
      texts.emplace_back(item.text());
    }
  }
  return texts;
}

std::optional<std::size_t> Keywords::count(const tb::Text& name) const {
  const tb::Value number = value(name);
  return number.is_null() ? std::nullopt : std::optional(count_of(number));
}

std::string Keywords::required_text(const tb::Text& name) const { return std::string(required(name).text()); }

std::size_t Keywords::required_count(const tb::Text& name) const { return count_of(required(name)); }

Deadline Keywords::deadline(const Limits& limits) const {
  return Deadline(limits, context<tb::server::Call>("call").stop_token());
}

const tb::KeywordArgument& Keywords::at(const tb::Text& name) const {
  if (const tb::KeywordArgument* const keyword = keywords_.find(name); keyword != nullptr) {
    return *keyword;
  }
  throw tb::LookupError("the handler of " + std::string(tool_) + " was not given '" + std::string(name) + "'");
}

tb::Value Keywords::required(const tb::Text& name) const {
  tb::Value found = value(name);
  if (!found.is_null()) {
    return found;
  }
  const std::optional<std::string> missing = tb::missing_arguments(tool_, action(), arguments_of(keywords_));
  throw tb::ArgumentError(missing.value_or("the registry does not say that '" + std::string(name) + "' is needed"));
}

}  // namespace repo_daemon
