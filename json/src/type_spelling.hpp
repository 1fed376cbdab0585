// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tool_binding::json {

/// What a type says as schemas of many languages spell it: "float", "List[str]", "Optional[int]", "string[]".
struct TypeSpelling {
  std::optional<std::string_view> type = {};  ///< the type word, none for what no type word can say
  std::string undeclarable = {};              ///< what it is then, as "an object"
  std::string items = {};                     ///< how the type of a list's items is spelled, empty where it is not said
};

[[nodiscard]] TypeSpelling read_type_spelling(std::string_view spelling);

}  // namespace tool_binding::json
