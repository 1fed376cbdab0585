// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "input.hpp"
#include "output_style.hpp"

namespace CLI {
class App;
}

/// How commands declare their options and arguments: the parser itself is known to this part and to `main` alone, since
/// its header takes ten times as long to compile as a command.
namespace tool_binding::cli {

/// Usage that a command finds wrong once all is read. Holds the words for it.
class WrongUsage : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What is declared is written to, or called, when the parser meets it; it is to live until the command has run. A type
// is what the help shows for a value.

void add_flag(CLI::App& command, const std::string& name, bool& is_set, const std::string& purpose);
void add_flag(CLI::App& command, const std::string& name, const std::function<void()>& act, const std::string& purpose);
void let_exclude_each_other(CLI::App& command, const std::vector<std::string>& flags);
void add_value(CLI::App& command, const std::string& name, std::string& value, const std::string& purpose,
               const std::string& type = {});
void add_required_value(CLI::App& command, const std::string& name, std::string& value, const std::string& purpose,
                        const std::string& type = {});
void add_values(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                const std::string& purpose, const std::string& type = {});
void add_choice(CLI::App& command, const std::string& name, std::string& value, const std::vector<std::string>& choices,
                const std::string& purpose);

/// `check` is called once all is read, and throws WrongUsage.
void add_check(CLI::App& command, const std::function<void()>& check);

/// Words below a command's options in its help, before those that end every help.
void add_words(CLI::App& command, const std::string& words);

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
