// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "search_tool.hpp"

namespace tool_binding::bench {

/// The walk of a request through the layer, as a daemon writes it where it catches a refusal: in no function of its
/// own.
struct Walk {
  ToolSpec tool{search_declaration()};
  Handler handler = search_handler();
  KeywordArguments context = daemon_context();

  [[nodiscard, gnu::always_inline]] KeywordArguments operator()(const ArgumentMap& arguments) const {
    return handler_kwargs(handler, bind_arguments(tool, normalize_arguments(tool, arguments).arguments()), context);
  }

  /// The refusal of a request that is refused. How long a throw takes depends on the frame that it is caught in: this
  /// is one of its own, wherever it is called.
  [[nodiscard, gnu::noinline]] std::string refusal(const ArgumentMap& arguments) const {
    try {
      static_cast<void>((*this)(arguments));
    } catch (const ArgumentError& error) {
      return error.what();
    }
    return {};
  }
};

}  // namespace tool_binding::bench
