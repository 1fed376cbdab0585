// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "colours.hpp"
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
  std::size_t jobs = 1;  ///< threads, at least one
};

/// Each declares what its name says; the parser writes to `files`, which is to live until the command has run.
void add_registry_option(CLI::App& command, Files& files);
void add_context_option(CLI::App& command, Files& files);

/// Whether what is written for people has colours.
void add_colour_option(CLI::App& command, Colour& colour);

/// The number of threads; 0 stands for one on each core, and is replaced by their number.
void add_jobs_option(CLI::App& command, std::size_t& jobs);

/// The lines to answer in any number of threads, and the check that standard input is read once only.
void add_lines_argument(CLI::App& command, Files& files, const std::string& name);

}  // namespace tool_binding::cli
