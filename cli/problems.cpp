// SPDX-License-Identifier: MIT
#include "problems.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "tool_binding/tool_binding.hpp"
#include "undemanding.hpp"

namespace tool_binding::cli {

namespace {

constexpr std::string_view joint = "; ";

/// What a request is refused with, nothing where it is admitted.
std::string refusal_of(const ToolSpec& tool, const ArgumentMap& arguments) {
  try {
    static_cast<void>(normalize_arguments(tool, arguments));
  } catch (const ArgumentError& refusal) {
    return std::string(refusal.message());
  } catch (const std::overflow_error&) {
  }
  return {};
}

/// Takes problems off the front of a refusal.
class Cutting {
 public:
  explicit Cutting(std::string_view refusal) : rest_(refusal) {}

  void take(const std::string& problem) {
    const std::string_view behind = rest_.substr(std::min(problem.size(), rest_.size()));
    if (!problem.empty() && rest_.starts_with(problem) && (behind.empty() || behind.starts_with(joint))) {
      problems_.push_back(problem);
      rest_ = behind.substr(std::min(joint.size(), behind.size()));
    }
  }

  /// The problems, the last of them all that nobody took.
  [[nodiscard]] std::vector<std::string> all() && {
    if (!rest_.empty()) {
      problems_.emplace_back(rest_);
    }
    return std::move(problems_);
  }

 private:
  std::string_view rest_;
  std::vector<std::string> problems_;
};

/// An argument whose list has several items that are refused has a problem for each.
void take_problems(Cutting& cutting, const ToolSpec& tool, const Text& name, const Value& value) {
  const ParamSpec* const param = tool.param(name);
  if (param == nullptr || param->type != "array" || param->enum_.empty() || !value.is_list()) {
    cutting.take(refusal_of(tool, {{name, value}}));
    return;
  }
  for (const Value& item : value.list()) {
    cutting.take(refusal_of(tool, {{name, std::vector<Value>{item}}}));
  }
}

/// The arguments that say which action runs, if any does.
ArgumentMap action_alone(const ArgumentMap& arguments) {
  const Value* const action = arguments.find(ACTION_PARAM);
  return action == nullptr ? ArgumentMap() : ArgumentMap{{ACTION_PARAM, *action}};
}

}  // namespace

std::vector<std::string> problems_of(const ToolSpec& tool, const ArgumentMap& arguments, std::string_view refusal) {
  Cutting cutting(refusal);
  const ToolSpec relaxed = undemanding(tool);
  for (const auto& [name, value] : arguments) {
    take_problems(cutting, relaxed, name, value);
  }
  for (const ParamSpec& param : tool.params()) {
    if (param.required || !param.required_for.empty()) {
      cutting.take(refusal_of(undemanding(tool, &param), action_alone(arguments)));
    }
  }
  return std::move(cutting).all();
}

}  // namespace tool_binding::cli
