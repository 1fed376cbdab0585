// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <functional>
#include <optional>
#include <utility>

#include "tool_binding/detail/export.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/server/answer.hpp"
#include "tool_binding/tool_registry.hpp"
#include "tool_binding/typed_handler.hpp"

namespace tool_binding::server {

/// The handler of a served tool: what `handler` of typed_handler.hpp returns, for a function whose result an Answer can
/// be made of; or a Handler.
///
/// With more than one worker it is called from several threads at once.
class TOOL_BINDING_API ToolHandler {
 public:
  using Function = std::function<Answer(const KeywordArguments&)>;

  template <class Listed>
  requires(!std::same_as<Listed, ToolHandler>) && requires(const Listed& listed) { listed.signature().parameters; }
  ToolHandler(Listed listed)  // NOLINT(google-explicit-constructor)
      : signature_(listed.signature()),
        for_tool_([typed = TypedHandler<Answer>(std::move(listed))](const ToolSpec& tool) {
          return Function(typed.for_tool(tool));
        }) {}

  ToolHandler(Handler handler);  // NOLINT(google-explicit-constructor)

  [[nodiscard]] const Signature& signature() const noexcept { return signature_; }

  /// The function as it answers one tool.
  [[nodiscard]] Function for_tool(const ToolSpec& tool) const { return for_tool_(tool); }

 private:
  Signature signature_;
  std::function<Function(const ToolSpec&)> for_tool_;
};

/// What a tool does to the world, as far as its author says so. Nothing is claimed that is not declared.
struct Annotations {
  std::optional<bool> read_only = {};    ///< it changes nothing
  std::optional<bool> destructive = {};  ///< it may destroy or overwrite what is there
  std::optional<bool> idempotent = {};   ///< the same call once more changes nothing more
  std::optional<bool> open_world = {};   ///< it deals with things outside the daemon's own
};

/// A tool, its handler and what callers are told of it.
struct ServedTool {
  ToolDeclaration tool;
  ToolHandler handler;
  Text title = {};  ///< a name for people
  Annotations annotations = {};
  /// The JSON Schema (2020-12) of the structured value that it answers with, null for none. That the handler keeps to
  /// it is the handler's business; that it answers with some such value is seen to.
  Value output_schema = {};
};

}  // namespace tool_binding::server
