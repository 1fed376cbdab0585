// SPDX-License-Identifier: MIT
#include "misuse.hpp"

#include <CLI/CLI.hpp>

#include "proposals.hpp"

namespace tool_binding::cli {

namespace {

std::vector<Text> option_names(const CLI::App& command) {
  std::vector<Text> names;
  for (const CLI::Option* const option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) {
      names.emplace_back("--" + name);
    }
  }
  return names;
}

std::vector<Text> command_names(const CLI::App& app) {
  std::vector<Text> names;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.emplace_back(command->get_name());
  }
  return names;
}

/// The first word that is no command or option where one stands; empty for none.
std::string unknown_word(const CLI::App& app) {
  const std::vector<CLI::App*> named = app.get_subcommands();
  for (const std::string& word : app.remaining(true)) {
    if (word.starts_with("--")) {
      const std::string name = word.substr(0, word.find('='));
      return "there is no option '" + name + "'" + did_you_mean(name, option_names(named.empty() ? app : *named[0]));
    }
    if (named.empty() && !word.starts_with('-')) {
      return "there is no command '" + word + "'" + did_you_mean(word, command_names(app));
    }
  }
  return {};
}

}  // namespace

std::string misuse_words(const CLI::App* app, const CLI::Error& misuse) {
  const std::string unknown = unknown_word(*app);
  return "tool-binding: " + (unknown.empty() ? std::string(misuse.what()) : unknown) +
         "\nRun with --help for more information.\n";
}

}  // namespace tool_binding::cli
