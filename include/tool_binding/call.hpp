// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <utility>

#include "tool_binding/admission.hpp"
#include "tool_binding/detail/export.hpp"
#include "tool_binding/handler.hpp"
#include "tool_binding/tool_registry.hpp"
#include "tool_binding/value.hpp"

/// From the arguments of a request to the keywords of its handler in one call.
///
/// `prepare_call` does what `normalize_arguments`, `bind_arguments` and `handler_kwargs` do one after the other, and
/// always comes to their answer; it makes one map instead of three, so that it takes two thirds of their time, and a
/// refusal is returned. A daemon that shows or keeps the intermediate results calls the three.
///
///     PreparedCall call = prepare_call(tool, handler, arguments, context);
///     return call.is_admitted() ? handler.function(call.keywords()) : refused(call.refusal());
namespace tool_binding {

/// What came of a request: the keywords for the handler, or the problems for which the request is refused. Refers to
/// the record of its tool, as its findings do.
class TOOL_BINDING_API PreparedCall : public Verdict {
 public:
  /// What `handler_kwargs` makes of the request; empty for a refused one.
  [[nodiscard]] const KeywordArguments& keywords() const& noexcept { return keywords_; }
  [[nodiscard]] KeywordArguments keywords() && noexcept { return std::move(keywords_); }

 private:
  friend PreparedCall prepare_call(const ToolSpec&, const Handler&, const ArgumentMap&, const KeywordArguments&);

  KeywordArguments keywords_;
};

/// Admits one request, binds it and makes the keywords that `handler` is called with, those of `context` included. A
/// request that the tool cannot take is an answer like any other. Throws what `admit` throws.
[[nodiscard]] TOOL_BINDING_API PreparedCall prepare_call(const ToolSpec& tool, const Handler& handler,
                                                         const ArgumentMap& arguments, const KeywordArguments& context);
[[nodiscard]] inline PreparedCall prepare_call(std::string_view tool, const Handler& handler,
                                               const ArgumentMap& arguments, const KeywordArguments& context) {
  return prepare_call(TOOLS[tool], handler, arguments, context);
}

}  // namespace tool_binding
