// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

#include "tool_binding/tool_binding.hpp"

/// The tool and the three requests that every figure of the benchmarks refers to.
namespace tool_binding::bench {

/// Twelve parameters, four actions, every type word, bounds and enumerations; no synonyms.
[[nodiscard]] ToolDeclaration search_declaration();

/// A handler that names every parameter, the action and the root.
[[nodiscard]] Handler search_handler();

/// The repository, its root and the engines.
[[nodiscard]] KeywordArguments daemon_context();

/// A request as its caller wrote it.
struct Request {
  std::string_view name;
  std::string_view text;
};

/// A needs no change, B needs one in nearly every argument, C is refused for three reasons.
inline constexpr std::array<Request, 3> requests = {{
    {"A",
     R"({"query":"parse config file","limit":25,"regex":true,"kinds":["function","class"],"threshold":0.75,"mode":"fuzzy"})"},
    {"B",
     R"({"query":"parse config file","limit":"25","regex":"true","kinds":"function,class","threshold":1.5,"mode":"Fuzzy"})"},
    {"C", R"({"path":"src/core","lmit":10,"limit":"ten","regex":true,"mode":"fuzzy"})"},
}};

}  // namespace tool_binding::bench
