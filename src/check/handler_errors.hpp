// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "check/findings.hpp"

namespace tool_binding {

/// Adds a finding for everything that the signature, which stands at `place`, says of its types and that the tool, or
/// the context that the daemon offers, does not give. `offered` is null where that is not known. Of a signature without
/// types nothing is said.
void check_types(const ToolDeclaration& tool, const Signature& signature, const KeywordArguments* offered,
                 const std::string& place, RegistryFindings& findings);

}  // namespace tool_binding
