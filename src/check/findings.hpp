// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tool_binding/registry_check.hpp"

namespace tool_binding {

/// RegistryFindings as they are made, with their words from one table.
class RegistryFindings {
 public:
  /// Adds a finding whose words are those of its kind, with `pieces` in their places.
  void add(RegistryFinding::Kind kind, std::string place, std::initializer_list<std::string_view> pieces = {});

  [[nodiscard]] std::vector<RegistryFinding> take() { return std::move(all_); }

 private:
  std::vector<RegistryFinding> all_;
};

[[nodiscard]] std::string did_you_mean(const Text& given, const std::vector<Text>& names);

/// Adds a finding for everything that the signature, which is at `place`, says of its types and that the tool, or
/// the context that the daemon offers, does not give. `offered` is null where that is not known. Of a signature without
/// types nothing is said.
void check_types(const ToolDeclaration& tool, const Signature& signature, const KeywordArguments* offered,
                 const std::string& place, RegistryFindings& findings);

/// A name or a text as findings show it.
[[nodiscard]] inline std::string quoted(const Text& text) { return quoted_form(Value(text)); }

}  // namespace tool_binding
