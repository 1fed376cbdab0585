// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "input.hpp"

namespace CLI {
class App;
}

/// The options and arguments that several commands share.
namespace tool_binding::cli {

/// The files that a command reads; any one of them may be standard input.
struct Files {
  std::string registry;
  std::string context;  ///< empty for none
  std::string lines = standard_input;
};

/// Each declares what its name says; the parser writes to `files`, which is to live until the command has run.
void add_registry_option(CLI::App& command, Files& files);
void add_context_option(CLI::App& command, Files& files);

/// The lines to answer, and the check that standard input is read once only.
void add_lines_argument(CLI::App& command, Files& files, const std::string& name);

}  // namespace tool_binding::cli
