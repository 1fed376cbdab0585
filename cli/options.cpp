// SPDX-License-Identifier: MIT
#include "options.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <thread>

namespace tool_binding::cli {

void add_registry_option(CLI::App& command, Files& files) {
  command.add_option("--registry", files.registry, "The file that declares the tools")->type_name("FILE")->required();
}

void add_context_option(CLI::App& command, Files& files) {
  command.add_option("--context", files.context, "A JSON object whose entries are offered to every handler")
      ->type_name("FILE");
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
  command.add_option(name, files.lines, "A file of lines; - or nothing: standard input")->type_name("FILE");
  command.callback([&files] {
    const std::array paths = {files.registry, files.context, files.lines};
    if (std::count(paths.begin(), paths.end(), standard_input) > 1) {
      throw CLI::ValidationError("standard input can be read only once: give the other files by path");
    }
  });
}

}  // namespace tool_binding::cli
