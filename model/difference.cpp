// SPDX-License-Identifier: MIT
#include "model/difference.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "model/model.hpp"
#include "support/one_line.hpp"
#include "tool_binding/call.hpp"
#include "tool_binding/tool_schemas.hpp"

namespace tool_binding::model {

namespace {

// Whether two answers are the same to the last bit, but for the bits of a NaN.

bool same(const Value& left, const Value& right);

bool same(const KeywordArgument& left, const KeywordArgument& right) {
  return left.is_context() || right.is_context() ? left == right : same(left.value(), right.value());
}

template <class Mapped>
bool same(const OrderedMap<Mapped>& left, const OrderedMap<Mapped>& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const auto& entry, const auto& other) {
    return entry.name == other.name && same(entry.value, other.value);
  });
}

bool same(const Value& left, const Value& right) {
  if (left.kind() != right.kind()) {
    return false;
  }
  if (left.is_floating()) {
    const double number = left.floating();
    const double other = right.floating();
    return (std::isnan(number) && std::isnan(other)) ||
           std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(other);
  }
  if (left.is_list()) {
    return std::equal(left.list().begin(), left.list().end(), right.list().begin(), right.list().end(),
                      [](const Value& item, const Value& other) { return same(item, other); });
  }
  return left.is_mapping() ? same(left.mapping(), right.mapping()) : left == right;
}

bool same(const NormalizedArguments& left, const NormalizedArguments& right) {
  return same(left.arguments(), right.arguments()) && left.alias_hit() == right.alias_hit() &&
         std::equal(left.notes().begin(), left.notes().end(), right.notes().begin(), right.notes().end());
}

bool same(const Finding& left, const Finding& right) {
  return left.kind == right.kind && left.argument == right.argument && left.parameter == right.parameter &&
         same(left.sent, right.sent) && same(left.read, right.read) && same(left.used, right.used) &&
         left.proposal == right.proposal && left.action == right.action && left.message == right.message;
}

bool same(const Admission& left, const Admission& right) {
  return same(left.arguments, right.arguments) && left.alias_hit == right.alias_hit &&
         std::equal(left.findings.begin(), left.findings.end(), right.findings.begin(), right.findings.end(),
                    [](const Finding& finding, const Finding& other) { return same(finding, other); });
}

bool same(const std::optional<std::string>& left, const std::optional<std::string>& right) { return left == right; }

/// What a call returns or how it fails.
template <class Result>
struct Answer {
  std::optional<Result> result = {};
  std::string failure = {};

  friend bool operator==(const Answer& left, const Answer& right) {
    return left.failure == right.failure && left.result.has_value() == right.result.has_value() &&
           (!left.result || same(*left.result, *right.result));
  }
};

/// The messages that the rules word are part of a failure.
template <class Call>
auto answer_of(const Call& call) -> Answer<decltype(call())> {
  try {
    return {.result = call()};
  } catch (const ArgumentError& error) {
    return {.failure = "refused: " + std::string(error.message())};
  } catch (const KeyError&) {
    return {.failure = "KeyError"};
  } catch (const LookupError& error) {
    return {.failure = "LookupError: " + std::string(error.message())};
  } catch (const TypeError&) {
    return {.failure = "TypeError"};
  } catch (const std::overflow_error&) {
    return {.failure = "overflow_error"};
  }
}

template <class Result>
std::string shown(const Result& result) {
  return one_line(result);
}

std::string shown(const Finding& finding) {
  return std::string(word_of(finding.kind)) + " of " +
         quoted_form(ArgumentMap{{"argument", finding.argument},
                                 {"parameter", finding.parameter == nullptr ? Value() : finding.parameter->name},
                                 {"sent", finding.sent},
                                 {"read", finding.read},
                                 {"used", finding.used},
                                 {"proposal", finding.proposal},
                                 {"action", finding.action}}) +
         ": " + finding.message;
}

std::string shown(const Admission& admission) {
  std::string lines = one_line(admission.arguments) + (admission.alias_hit ? " | alias" : "");
  for (const Finding& finding : admission.findings) {
    lines += "\n  " + shown(finding);
  }
  return lines;
}

template <class Result>
std::string in_words(const Answer<Result>& answer) {
  return answer.result ? shown(*answer.result) : answer.failure;
}

Value as_list(const std::vector<Text>& texts) { return std::vector<Value>(texts.begin(), texts.end()); }

Value in_short(const ParamSpec& param) {
  return ArgumentMap{{"name", param.name},
                     {"type", param.type},
                     {"synonyms", as_list(param.synonyms)},
                     {"items_type", param.items_type ? Value(*param.items_type) : Value()},
                     {"enum", as_list(param.enum_)},
                     {"bounds", std::vector<Value>{param.minimum, param.maximum}},
                     {"default", param.default_},
                     {"action_defaults", param.action_defaults},
                     {"required", param.required},
                     {"required_for", as_list(param.required_for)},
                     {"blank_is_value", param.blank_is_value}};
}

/// The declaration, with a line for each action and each parameter.
std::string in_words(const ToolDeclaration& tool) {
  std::string words = "tool " + quoted_form(tool.name);
  words += ", default action " + (tool.default_action ? quoted_form(*tool.default_action) : "none");
  for (const ActionSpec& action : tool.actions) {
    words += "\naction " + quoted_form(action.name) + " or " + quoted_form(as_list(action.synonyms));
  }
  for (const ParamSpec& param : tool.params) {
    words += "\nparameter " + quoted_form(in_short(param));
  }
  return words;
}

template <class Layer, class Model>
std::string difference(const Tool& tool, std::string_view question, const ArgumentMap& asked, const Layer& layer,
                       const Model& model) {
  const auto answer = answer_of(layer);
  const auto right_answer = answer_of(model);
  if (answer == right_answer) {
    return {};
  }
  return in_words(tool.declared) + "\n" + std::string(question) + " " + one_line(asked) +
         "\nlayer: " + in_words(answer) + "\nmodel: " + in_words(right_answer) + "\n";
}

const KeywordArguments& context() {
  static const std::string item = "item";
  static const KeywordArguments offered = [] {
    KeywordArguments all;
    for (const std::string_view name : {"b", "a", "engine", "action", ""}) {
      all.set(name, KeywordArgument::context(item));
    }
    return all;
  }();
  return offered;
}

const std::vector<Handler>& handlers() {
  using enum Parameter::Kind;
  static const std::vector<Handler> all = {
      {.signature = {}, .function = {}},
      {.signature = {{{.name = "engine"}, {.name = "a"}, {.name = "b", .kind = VAR_POSITIONAL}}}, .function = {}},
      {.signature = {{{.name = "a", .kind = VAR_POSITIONAL}, {.name = "b", .kind = VAR_KEYWORD}}}, .function = {}}};
  return all;
}

/// A call made ready at once, with its keywords where it is admitted.
struct Call {
  Admission verdict;
  KeywordArguments keywords = {};
};

bool same(const Call& left, const Call& right) {
  return same(left.verdict, right.verdict) && same(left.keywords, right.keywords);
}

std::string shown(const Call& call) { return shown(call.verdict) + "\n  " + one_line(call.keywords); }

std::string difference_in_keywords(const Tool& tool, const Handler& handler, const ArgumentMap& bound) {
  const auto model = [&] { return model::handler_kwargs(handler, bound, context()); };
  std::string found = difference(
      tool, "keywords of", bound, [&] { return tool_binding::handler_kwargs(handler, bound, context()); }, model);
  found += difference(
      tool, "keywords of what is given away", bound,
      [&] { return tool_binding::handler_kwargs(handler, ArgumentMap(bound), context()); }, model);
  return found;
}

/// The parameter of the declaration that a parameter of the record was made of.
const ParamSpec* declared(const Tool& tool, const ParamSpec* param) {
  return param == nullptr ? nullptr : &tool.declared.params.at(std::size_t(param - tool.record.params().data()));
}

/// What the layer found, without the arguments.
Admission verdict_by_layer(const Tool& tool, const Verdict& given) {
  Admission admission{.alias_hit = given.alias_hit()};
  for (const tool_binding::Finding& finding : given.findings()) {
    admission.findings.push_back({.kind = finding.kind,
                                  .argument = finding.argument,
                                  .parameter = declared(tool, finding.parameter),
                                  .sent = finding.sent,
                                  .read = finding.read,
                                  .used = finding.used,
                                  .proposal = finding.proposal,
                                  .action = finding.action,
                                  .message = finding.message()});
  }
  return admission;
}

Admission admission_by_layer(const Tool& tool, const ArgumentMap& request) {
  const tool_binding::Admission given = tool_binding::admit(tool.record, request);
  Admission admission = verdict_by_layer(tool, given);
  admission.arguments = given.arguments();
  return admission;
}

/// The call as the model's three functions make it.
Call call_by_model(const Tool& tool, const Handler& handler, const ArgumentMap& request) {
  Call call{.verdict = model::admit(tool.declared, request)};
  const bool is_refused = std::any_of(call.verdict.findings.begin(), call.verdict.findings.end(),
                                      [](const Finding& finding) { return is_problem(finding.kind); });
  if (!is_refused) {
    call.keywords =
        model::handler_kwargs(handler, model::bind_arguments(tool.declared, call.verdict.arguments), context());
  }
  call.verdict.arguments = {};
  return call;
}

Call call_by_layer(const Tool& tool, const Handler& handler, const ArgumentMap& request) {
  const PreparedCall given = tool_binding::prepare_call(tool.record, handler, request, context());
  return {.verdict = verdict_by_layer(tool, given), .keywords = given.keywords()};
}

}  // namespace

std::string difference_in_call(const Tool& tool, const ArgumentMap& request) {
  std::string found;
  for (const Handler& handler : handlers()) {
    found += difference(
        tool, "call of", request, [&] { return call_by_layer(tool, handler, request); },
        [&] { return call_by_model(tool, handler, request); });
  }
  return found;
}

std::string difference_in_admission(const Tool& tool, const ArgumentMap& request) {
  return difference(
      tool, "admission of", request, [&] { return admission_by_layer(tool, request); },
      [&] { return model::admit(tool.declared, request); });
}

std::string difference_in_binding(const Tool& tool, const ArgumentMap& arguments) {
  const auto model = [&] { return model::bind_arguments(tool.declared, arguments); };
  const ArgumentMap bound = model();
  std::string found = difference(
      tool, "binding of", arguments, [&] { return tool_binding::bind_arguments(tool.record, arguments); }, model);
  found += difference(
      tool, "binding of what is given away", arguments,
      [&] { return tool_binding::bind_arguments(tool.record, ArgumentMap(arguments)); }, model);
  found += difference(
      tool, "action of", arguments, [&] { return tool_binding::effective_action(tool.record, arguments); },
      [&] { return model::effective_action(tool.declared, arguments); });
  for (const Handler& handler : handlers()) {
    found += difference_in_keywords(tool, handler, bound);
  }
  return found;
}

std::string difference_in_walk(const Tool& tool, const ArgumentMap& request) {
  const auto model = [&] { return model::normalize_arguments(tool.declared, request); };
  std::string found =
      difference_in_admission(tool, request) + difference_in_binding(tool, request) + difference_in_call(tool, request);
  found += difference(
      tool, "normalized arguments of", request, [&] { return tool_binding::normalize_arguments(tool.record, request); },
      model);
  const auto admitted = answer_of(model);
  if (admitted.result) {
    found += difference_in_binding(tool, admitted.result->arguments());
  }
  return found;
}

std::string difference_in_missing(const Tool& tool, std::optional<std::string_view> action,
                                  const ArgumentMap& arguments) {
  const std::string question = "what is missing for '" + std::string(action.value_or("(no action)")) + "' of ";
  const KeywordArguments keywords = model::handler_kwargs(handlers().back(), arguments, context());
  return difference(
             tool, question + "arguments", arguments,
             [&] { return tool_binding::missing_arguments(tool.record, action, arguments); },
             [&] { return model::missing_arguments(tool.declared, action, arguments); }) +
         difference(
             tool, question + "keywords with a context and", arguments,
             [&] { return tool_binding::missing_arguments(tool.record, action, keywords); },
             [&] { return model::missing_arguments(tool.declared, action, keywords); });
}

std::string difference_in_default(const Tool& tool, std::string_view name, std::string_view action) {
  return difference(
      tool, "default of '" + std::string(name) + "' for '" + std::string(action) + "'", {},
      [&] { return tool_binding::action_default(tool.record, name, action); },
      [&] { return model::action_default(tool.declared, name, action); });
}

}  // namespace tool_binding::model
