// SPDX-License-Identifier: MIT
#include "pipeline.hpp"

#include <exception>

#include "tool_binding/tool_binding.hpp"

namespace repo_daemon {

namespace tb = tool_binding;

Outcome call_tool(const tb::Text& name, const tb::Handler& handler, const tb::ArgumentMap& arguments,
                  const tb::KeywordArguments& context) {
  Outcome outcome;
  try {
    const tb::NormalizedArguments admitted = tb::normalize_arguments(name, arguments);
    outcome.notes.assign(admitted.notes().begin(), admitted.notes().end());
    const tb::ArgumentMap bound = tb::bind_arguments(name, admitted.arguments());
    const tb::KeywordArguments keywords = tb::handler_kwargs(handler, bound, context);
    outcome.text = handler.function(keywords).text();
  } catch (const tb::ArgumentError& refusal) {
    outcome.text = refusal.message();
    outcome.refused = true;
  } catch (const std::exception& failure) {
    outcome.text = std::string(name) + " failed: " + failure.what();
    outcome.refused = true;
  }
  return outcome;
}

}  // namespace repo_daemon
