// SPDX-License-Identifier: MIT
#include "undemanding.hpp"

#include <cstddef>
#include <utility>

namespace tool_binding::cli {

ToolSpec undemanding(const ToolSpec& tool, const ParamSpec* needed) {
  ToolDeclaration declaration{.name = tool.name(),
                              .actions = {tool.actions().begin(), tool.actions().end()},
                              .default_action = tool.default_action(),
                              .params = {tool.params().begin(), tool.params().end()}};
  if (!declaration.default_action && !declaration.actions.empty()) {
    declaration.default_action = declaration.actions.front().name;
  }
  for (std::size_t place = 0; place < declaration.params.size(); ++place) {
    if (&tool.params()[place] != needed) {
      declaration.params[place].required = false;
      declaration.params[place].required_for.clear();
    }
  }
  return ToolSpec(std::move(declaration));
}

}  // namespace tool_binding::cli
