// SPDX-License-Identifier: MIT
#include "options.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <thread>

namespace tool_binding::cli {

namespace {

void show_type(CLI::Option* option, const std::string& type) {
  if (!type.empty()) {
    option->type_name(type);
  }
}

}  // namespace

void add_flag(CLI::App& command, const std::string& name, bool& is_set, const std::string& purpose) {
  command.add_flag(name, is_set, purpose);
}

void add_flag(CLI::App& command, const std::string& name, const std::function<void()>& act,
              const std::string& purpose) {
  command.add_flag_callback(name, act, purpose);
}

void let_exclude_each_other(CLI::App& command, const std::vector<std::string>& flags) {
  for (auto flag = flags.begin(); flag != flags.end(); ++flag) {
    for (auto other = flag + 1; other != flags.end(); ++other) {
      command.get_option(*flag)->excludes(command.get_option(*other));
    }
  }
}

void add_value(CLI::App& command, const std::string& name, std::string& value, const std::string& purpose,
               const std::string& type) {
  show_type(command.add_option(name, value, purpose), type);
}

void add_required_value(CLI::App& command, const std::string& name, std::string& value, const std::string& purpose,
                        const std::string& type) {
  show_type(command.add_option(name, value, purpose)->required(), type);
}

void add_values(CLI::App& command, const std::string& name, std::vector<std::string>& values,
                const std::string& purpose, const std::string& type) {
  show_type(command.add_option(name, values, purpose), type);
}

void add_choice(CLI::App& command, const std::string& name, std::string& value, const std::vector<std::string>& choices,
                const std::string& purpose) {
  std::string type;
  for (const std::string& choice : choices) {
    type.append(type.empty() ? "" : "|").append(choice);
  }
  command.add_option(name, value, purpose)->type_name(type)->check(CLI::IsMember(choices));
}

void add_words(CLI::App& command, const std::string& words) { command.footer(words + "\n\n" + command.get_footer()); }

void add_check(CLI::App& command, const std::function<void()>& check) {
  command.callback([check] {
    try {
      check();
    } catch (const WrongUsage& wrong) {
      throw CLI::ValidationError(wrong.what());
    }
  });
}

void add_registry_option(CLI::App& command, Files& files) {
  add_required_value(command, "--registry", files.registry, "The file that declares the tools", "FILE");
}

void add_context_option(CLI::App& command, Files& files) {
  add_value(command, "--context", files.context, "A JSON object whose entries are offered to every handler", "FILE");
}

void add_colour_option(CLI::App& command, Colour& colour) {
  const std::map<std::string, Colour> words = {
      {"auto", Colour::automatic}, {"always", Colour::always}, {"never", Colour::never}};
  command.add_option("--color", colour, "Colours: auto, as the terminal has them; always; or never")
      ->type_name("WHEN")
      ->transform(CLI::Transformer(words).description(""));
}

void add_jobs_option(CLI::App& command, std::size_t& jobs) {
  constexpr std::size_t most = 1024;
  command
      .add_option_function<std::size_t>(
          "--jobs",
          [&jobs](std::size_t count) { jobs = count != 0 ? count : std::max(1U, std::thread::hardware_concurrency()); },
          "Threads that share the lines, with the same answers in the same order; 0: one on each core")
      ->type_name("N")
      ->check(CLI::Range(std::size_t{0}, most));
}

void add_lines_argument(CLI::App& command, Files& files, const std::string& name) {
  add_jobs_option(command, files.jobs);
  add_value(command, name, files.lines, "A file of lines; - or nothing: standard input", "FILE");
  add_check(command, [&files] {
    const std::array paths = {files.registry, files.context, files.lines};
    if (std::count(paths.begin(), paths.end(), standard_input) > 1) {
      throw WrongUsage("standard input can be read only once: give the other files by path");
    }
  });
}

}  // namespace tool_binding::cli
