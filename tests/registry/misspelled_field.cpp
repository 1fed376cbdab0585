// SPDX-License-Identifier: MIT
#include "tool_binding/registry_check.hpp"

/// Does not compile: the compiler is to name the field.
const std::vector<tool_binding::RegistryEntry> misspelled = {tool_binding::RegistryEntry{
    .tool = {.name = "t", .params = {tool_binding::ParamSpec{.name = "p", .type = "integer", .minimun = 1}}}}};
